// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <concepts>

namespace reelsmith {

/// An experiment as the registry knows it: a type without instances that names the remote key of its
/// variant, and the short identifier under which participation is reported.
template<typename Experiment>
concept ABExperimentID = requires {
    { Experiment::key } -> std::convertible_to<QString>;
    { Experiment::id } -> std::convertible_to<QString>;
};

/// An experiment whose variant can be read: it also names the variants' type, and the one that holds while
/// the service has none.
template<typename Experiment>
concept ABExperiment = ABExperimentID<Experiment> && requires {
    typename Experiment::Value;
    { Experiment::defaultValue } -> std::convertible_to<typename Experiment::Value>;
};

} // namespace reelsmith
