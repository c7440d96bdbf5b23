// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// Where a converter takes its progress from. Every conversion runs in `legacy`; nothing selects `new_`.
enum class ConversionMode {
    legacy, ///< from its export session
    new_,   ///< from the value handed to its progress callback
};

} // namespace reelsmith
