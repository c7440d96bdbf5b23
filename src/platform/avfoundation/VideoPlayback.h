// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/CMTime.h"

#include <QString>
#include <QUrl>
#include <chrono>
#include <functional>
#include <utility>

class QObject;

namespace reelsmith {

/// How far the playing of a video has come.
struct PlaybackState {
    bool isPlaying = false;
    bool hasSound = false; ///< the video has some, and there is a device to hear it on
    bool isMuted = false;
    std::chrono::milliseconds position{0}; ///< 0…duration
    std::chrono::milliseconds duration{0}; ///< 0 where unknown
    QString error;                         ///< why the video cannot be played; empty while it can

    bool isAtEnd() const { return duration.count() > 0 && position >= duration; }
    bool operator==(const PlaybackState&) const = default;
};

/// What plays a video for an AVPlayer. Main thread. This one plays nothing.
class VideoPlayback {
public:
    virtual ~VideoPlayback() = default;

    /// Takes the place of the video that there was.
    virtual void setSource(const QUrl& /*url*/) {}

    /// Where the video stands still the picture of that time is shown.
    virtual void seek(const CMTime& /*time*/) {}

    /// Plays up to the end, where the last picture stays; from there once more from the beginning.
    virtual void play() {}

    /// Stops where it is, and shows the picture there.
    virtual void pause() {}

    virtual void setMuted(bool /*isMuted*/) {}

    /// What hands out the pictures: an object that the playback and what shows it agree on. Its own; null for
    /// no pictures.
    virtual QObject* output() { return nullptr; }

    const PlaybackState& state() const { return m_state; }

    /// Is called after each change of the state; only one is.
    void setObserver(std::function<void()> observer) { m_observer = std::move(observer); }

protected:
    void setState(const PlaybackState& state) {
        if (state == m_state)
            return;
        m_state = state;
        if (m_observer)
            m_observer();
    }

private:
    PlaybackState m_state;
    std::function<void()> m_observer;
};

} // namespace reelsmith
