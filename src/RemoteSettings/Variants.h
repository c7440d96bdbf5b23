// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

namespace reelsmith {

/// The variants that experiments have in common.
struct Variants {
    static constexpr QLatin1StringView defaultVariant{"default"};
    static constexpr QLatin1StringView variantA{"variant_a"};
    static constexpr QLatin1StringView variantB{"variant_b"};
};

} // namespace reelsmith
