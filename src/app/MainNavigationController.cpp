// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainNavigationController.h"

namespace reelsmith {

void MainNavigationController::viewDidLoad() {
    constexpr int prominentBlur = 5;
    const BarAppearance appearance{QStringLiteral("light gray"), 0.5, prominentBlur};
    setAppearances(appearance, appearance);
}

} // namespace reelsmith
