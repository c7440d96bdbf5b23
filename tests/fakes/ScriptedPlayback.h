// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/VideoPlayback.h"

namespace reelsmith {

/// Plays, as far as it says so itself, a video of a minute with sound, in which time stands still.
class ScriptedPlayback : public VideoPlayback {
public:
    void setSource(const QUrl& /*url*/) override {
        PlaybackState loaded;
        loaded.duration = std::chrono::minutes(1);
        loaded.hasSound = true;
        setState(loaded);
    }
    void seek(const CMTime& time) override {
        PlaybackState now = state();
        now.position = std::chrono::milliseconds(qRound64(time.seconds() * 1000));
        setState(now);
    }
    void play() override { setPlaying(true); }
    void pause() override { setPlaying(false); }
    void setMuted(bool isMuted) override {
        PlaybackState now = state();
        now.isMuted = isMuted;
        setState(now);
    }

private:
    void setPlaying(bool isPlaying) {
        PlaybackState now = state();
        now.isPlaying = isPlaying;
        setState(now);
    }
};

} // namespace reelsmith
