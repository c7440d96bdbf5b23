// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/multimedia/MultimediaPlayback.h"

namespace reelsmith {

MultimediaPlayback::MultimediaPlayback() {
    // A player that gets its sink only while it plays hands out no pictures.
    m_player.setVideoSink(&m_sink);
}

void MultimediaPlayback::setSource(const QUrl& url) {
    m_player.setSource(url);
}

void MultimediaPlayback::seek(const CMTime& time) {
    m_player.setPosition(qRound64(time.seconds() * 1000));
}

void MultimediaPlayback::play() {
    m_player.play();
}

} // namespace reelsmith
