// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <concepts>

namespace reelsmith {

/// A switch under remote control: a type without instances that names its remote key and its default.
/// `RemoteSettings::isEnabled` reads it.
template<typename Toggle>
concept FeatureToggle = requires {
    { Toggle::key } -> std::convertible_to<QString>;
    { Toggle::defaultValue } -> std::convertible_to<bool>;
};

} // namespace reelsmith
