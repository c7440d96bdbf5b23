// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/ABTestManager.h"

#include "remote/Experiments.h"

namespace reelsmith {

ABTestManager& ABTestManager::shared() {
    static ABTestManager sharedManager;
    return sharedManager;
}

void ABTestManager::registerExperiments() {
    ABTests::shared().registerExperiments<Experiments::newVideoLayout>();
}

} // namespace reelsmith
