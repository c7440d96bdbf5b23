// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace reelsmith {

/// Runs the event loop until something is so; false when it is not so in half a minute.
bool runLoopUntil(const std::function<bool()>& isSo);

} // namespace reelsmith
