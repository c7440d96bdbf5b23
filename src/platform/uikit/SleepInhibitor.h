// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// Keeps the device from going to sleep. Main thread. This one does nothing: for systems that offer no such
/// service.
class SleepInhibitor {
public:
    virtual ~SleepInhibitor() = default;

    /// From now on, until let go.
    virtual void hold() {}
    virtual void letGo() {}
};

} // namespace reelsmith
