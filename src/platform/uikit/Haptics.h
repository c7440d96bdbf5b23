// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// What the user feels when touching something. Main thread. This one: nothing.
class Haptics {
public:
    virtual ~Haptics() = default;

    /// A short tap of middling strength.
    virtual void impactOccurred() {}
};

} // namespace reelsmith
