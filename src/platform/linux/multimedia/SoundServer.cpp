// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/multimedia/SoundServer.h"

#include <QByteArray>

namespace reelsmith {

namespace {

// The server's library reads this when it connects.
constexpr auto roleVariable = "PULSE_PROP_media.role";

} // namespace

Result<void> SoundServer::setCategory(AVAudioSessionCategory category) {
    const bool isDone = category == AVAudioSessionCategory::Playback ? qputenv(roleVariable, "video")
                                                                     : qunsetenv(roleVariable);
    if (!isDone)
        return failure(QStringLiteral("The sound server cannot be told what the sound is for"));
    return {};
}

} // namespace reelsmith
