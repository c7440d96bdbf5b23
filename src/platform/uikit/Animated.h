// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// Whether a change of screens is to be seen happening.
enum class Animated { No, Yes };

} // namespace reelsmith
