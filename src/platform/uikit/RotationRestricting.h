// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// An application that keeps its screens upright unless one of them asks for more. Main thread.
class RotationRestricting {
public:
    virtual ~RotationRestricting() = default;

    /// Whether only portrait is allowed.
    virtual void setRestrictRotation(bool restricts) = 0;

    /// The running application's delegate; null where that is no such application.
    static RotationRestricting* ofApplication();
};

} // namespace reelsmith
