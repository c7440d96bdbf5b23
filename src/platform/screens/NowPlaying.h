// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

class AVPlayer;

/// What is playing, for the rest of the desktop to see and to steer: its media keys and its lock screen. Main
/// thread. This one tells nobody.
class NowPlaying {
public:
    virtual ~NowPlaying() = default;

    /// `player` is what plays, until end().
    virtual void begin(AVPlayer& /*player*/) {}
    virtual void end() {}
};

} // namespace reelsmith
