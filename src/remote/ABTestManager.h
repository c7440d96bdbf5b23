// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RemoteSettings/ABTests.h"

namespace reelsmith {

/// The application's way to its experiments.
class ABTestManager {
public:
    static ABTestManager& shared();

    /// Registers the application's experiments. Once a launch, before the remote values are fetched.
    void registerExperiments();

    /// The current variant of one of them, read afresh at each call.
    template<ABExperiment Experiment>
    typename Experiment::Value variant() const {
        return ABTests::shared().variant<Experiment>();
    }

private:
    ABTestManager() = default;
};

} // namespace reelsmith
