// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace reelsmith {

/// A rational time: value / timescale seconds. A timescale of 0 stands for "unknown".
struct CMTime {
    std::int64_t value = 0;
    std::int32_t timescale = 0;

    /// Always finite; 0 where unknown.
    double seconds() const {
        return timescale == 0 ? 0 : static_cast<double>(value) / static_cast<double>(timescale);
    }
    bool operator==(const CMTime&) const = default;
};

} // namespace reelsmith
