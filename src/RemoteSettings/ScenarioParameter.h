// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace reelsmith {

/// One remotely tunable value: where to find it, and what holds while the service has nothing usable.
template<typename T>
struct ScenarioParameter {
    QString key;
    T defaultValue;
};

} // namespace reelsmith
