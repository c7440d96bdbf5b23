// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RemoteSettings/FeatureToggle.h"
#include "RemoteSettings/RemoteValue.h"
#include "RemoteSettings/ScenarioParameter.h"
#include "platform/services/RemoteConfig.h"

#include <concepts>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace reelsmith {

/// The remote values, as the application's own definitions describe them: fetched once a launch, looked up
/// at any time from any thread. Defaults live in the definitions, never in the service.
class RemoteSettings : public std::enable_shared_from_this<RemoteSettings> {
public:
    using Completion = std::function<void()>;

    /// The application's settings, on the service configured when they are first asked for.
    static RemoteSettings& shared();

    /// Settings on `remoteConfig`; to be held by a shared pointer.
    explicit RemoteSettings(std::shared_ptr<RemoteConfig> remoteConfig);

    /// Fetches and activates the remote values. Failures are printed, and end in `completion` too, which runs
    /// on a thread of the service's choosing. It never runs if these settings are gone when a fetch succeeds.
    void fetch(Completion completion);

    /// The remote value of `parameter`, or its default where that is absent, empty or not a T. Text, Booleans
    /// and signed integers can be remote; every other type has its default.
    template<typename T>
    T value(const ScenarioParameter<T>& parameter) const;

    /// Whether a toggle is on.
    template<FeatureToggle Toggle>
    bool isEnabled() const {
        return value(ScenarioParameter<bool>{Toggle::key, Toggle::defaultValue});
    }

    /// Prints every remote key with its value; nothing when there is none.
    void printRemoteConfigs() const;

private:
    void activate(const Completion& completion);
    std::optional<QString> usableString(const QString& key) const;

    const std::shared_ptr<RemoteConfig> m_remoteConfig;
};

template<typename T>
T RemoteSettings::value(const ScenarioParameter<T>& parameter) const {
    const std::optional<QString> text = usableString(parameter.key);
    if (!text)
        return parameter.defaultValue;
    if constexpr (std::same_as<T, QString>) {
        return *text;
    } else if constexpr (std::same_as<T, bool>) {
        return parseBoolean(*text).value_or(parameter.defaultValue);
    } else if constexpr (std::signed_integral<T>) {
        const std::optional<qint64> integer = parseInteger(*text);
        return integer && std::in_range<T>(*integer) ? static_cast<T>(*integer) : parameter.defaultValue;
    } else {
        return parameter.defaultValue;
    }
}

} // namespace reelsmith
