// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/AVPlayer.h"

namespace reelsmith {

AVPlayer::PlaybackFactory& AVPlayer::playbackFactory() {
    static PlaybackFactory factory = [] { return std::make_unique<VideoPlayback>(); };
    return factory;
}

void AVPlayer::setPlaybackFactory(PlaybackFactory factory) {
    playbackFactory() = std::move(factory);
}

AVPlayer::AVPlayer() : m_playback(playbackFactory()()) {
    m_playback->setObserver([this] { emit changed(); });
}

AVPlayer::AVPlayer(const QUrl& url) : AVPlayer() {
    replaceCurrentItem({url});
}

AVPlayer::~AVPlayer() {
    m_playback->setObserver({});
}

void AVPlayer::replaceCurrentItem(const AVPlayerItem& item) {
    m_item = item;
    m_playback->setSource(item.url);
}

void AVPlayer::play() {
    const bool startsOver = state().isAtEnd();
    m_playback->play();
    if (startsOver)
        emit sought();
}

void AVPlayer::seek(const CMTime& time) {
    m_playback->seek(time);
    emit sought();
}

} // namespace reelsmith
