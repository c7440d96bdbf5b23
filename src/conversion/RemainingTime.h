// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <chrono>

namespace reelsmith {

/// "about 2 min left", if all goes on at the pace so far. Empty in the first seconds, and where nothing can
/// be said. `fraction`: of what is to be done, 0…1.
QString remainingTimeText(double fraction, std::chrono::milliseconds elapsed);

} // namespace reelsmith
