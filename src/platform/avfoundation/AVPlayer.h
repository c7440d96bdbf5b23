// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/VideoPlayback.h"

#include <functional>
#include <memory>
#include <utility>

namespace reelsmith {

/// A video as something to play.
struct AVPlayerItem {
    QUrl url;
};

/// Plays one video at a time, seen where an AVPlayerLayer shows it. Main thread.
class AVPlayer {
public:
    using PlaybackFactory = std::function<std::unique_ptr<VideoPlayback>()>;

    /// What players made from now on play with; they play nothing before.
    static void setPlaybackFactory(PlaybackFactory factory) { playbackFactory() = std::move(factory); }

    AVPlayer() : m_playback(playbackFactory()()) {}

    void replaceCurrentItem(const AVPlayerItem& item) { m_playback->setSource(item.url); }
    void seek(const CMTime& time) { m_playback->seek(time); }
    void play() { m_playback->play(); }

    /// For the layer that shows the player; see VideoPlayback::output().
    QObject* output() const { return m_playback->output(); }

private:
    static PlaybackFactory& playbackFactory() {
        static PlaybackFactory factory = [] { return std::make_unique<VideoPlayback>(); };
        return factory;
    }

    std::unique_ptr<VideoPlayback> m_playback;
};

} // namespace reelsmith
