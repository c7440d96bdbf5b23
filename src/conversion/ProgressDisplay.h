// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// Shows how far something has come.
class ProgressDisplay {
public:
    virtual ~ProgressDisplay() = default;

    /// `progress`: 0…1.
    virtual void updateProgress(double progress) = 0;
};

} // namespace reelsmith
