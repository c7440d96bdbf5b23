// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// Keeps the device from doing something by itself: going to sleep, or dimming and locking its screen. Main
/// thread. This one does nothing: for systems that offer no such service.
class Inhibitor {
public:
    virtual ~Inhibitor() = default;

    /// From now on, until let go. Not to be held twice.
    virtual void hold() {}
    virtual void letGo() {}
};

} // namespace reelsmith
