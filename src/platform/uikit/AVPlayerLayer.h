// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/AVPlayer.h"
#include "platform/uikit/View.h"

namespace reelsmith {

/// Where a player's pictures are seen. Main thread.
class AVPlayerLayer : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(bool isFilling READ isFilling NOTIFY changed)

public:
    enum class VideoGravity {
        ResizeAspect,     ///< all of the picture is seen
        ResizeAspectFill, ///< the picture fills the layer, which crops it
    };

    /// `player` must outlive the layer.
    explicit AVPlayerLayer(AVPlayer& player) : m_player(player) {}

    VideoGravity videoGravity() const { return m_videoGravity; }
    void setVideoGravity(VideoGravity gravity) { assign(m_videoGravity, gravity); }
    bool isFilling() const { return m_videoGravity == VideoGravity::ResizeAspectFill; }

    /// For the item that draws the layer; see VideoPlayback::output().
    QObject* output() const { return m_player.output(); }

private:
    AVPlayer& m_player;
    VideoGravity m_videoGravity = VideoGravity::ResizeAspect;
};

} // namespace reelsmith
