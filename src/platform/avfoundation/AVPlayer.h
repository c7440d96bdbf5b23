// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/VideoPlayback.h"

#include <QObject>
#include <functional>
#include <memory>

namespace reelsmith {

/// A video as something to play.
struct AVPlayerItem {
    QUrl url;
};

/// Plays one video at a time, seen where an AVPlayerLayer shows it. Main thread.
class AVPlayer : public QObject {
    Q_OBJECT

public:
    using PlaybackFactory = std::function<std::unique_ptr<VideoPlayback>()>;

    /// What players made from now on play with; they play nothing before.
    static void setPlaybackFactory(PlaybackFactory factory);

    AVPlayer();
    explicit AVPlayer(const QUrl& url);
    ~AVPlayer() override;

    const AVPlayerItem& currentItem() const { return m_item; }
    void replaceCurrentItem(const AVPlayerItem& item);

    // As VideoPlayback says.
    void seek(const CMTime& time);
    void play();
    void pause() { m_playback->pause(); }
    void setMuted(bool isMuted) { m_playback->setMuted(isMuted); }
    const PlaybackState& state() const { return m_playback->state(); }

    /// For the layer that shows the player; see VideoPlayback::output().
    QObject* output() const { return m_playback->output(); }

signals:
    /// The state is another.
    void changed();
    /// It goes on from somewhere else.
    void sought();

private:
    static PlaybackFactory& playbackFactory();

    std::unique_ptr<VideoPlayback> m_playback;
    AVPlayerItem m_item;
};

} // namespace reelsmith
