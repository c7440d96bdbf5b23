// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RemoteSettings/ABExperiment.h"
#include "RemoteSettings/RemoteSettings.h"

#include <QStringList>

namespace reelsmith {

/// The registry of experiments.
class ABTests {
public:
    static ABTests& shared();

    /// Reports the experiments that this installation takes part in, in the given order, as the user
    /// property "participating_tests". Past 36 characters, delimiters included, the process stops with a
    /// fatal error.
    template<ABExperimentID... Experiments>
    void registerExperiments() {
        reportParticipation({QString(Experiments::id)...});
    }

    /// The current variant of an experiment, read afresh at each call. Any thread.
    template<ABExperiment Experiment>
    typename Experiment::Value variant() const {
        return RemoteSettings::shared().value(
            ScenarioParameter<typename Experiment::Value>{Experiment::key, Experiment::defaultValue});
    }

    /// Asks for the installation's token, refreshed, and prints it or the error.
    void printInstallationAuthToken() const;

private:
    ABTests() = default;

    static void reportParticipation(const QStringList& ids);
};

} // namespace reelsmith
