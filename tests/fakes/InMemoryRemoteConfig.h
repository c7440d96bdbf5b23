// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/DispatchQueue.h"
#include "platform/services/RemoteConfig.h"

#include <QMap>
#include <mutex>

namespace reelsmith {

/// A remote configuration service with its server, all in memory. Any thread.
class InMemoryRemoteConfig : public RemoteConfig {
public:
    /// A key without text is one whose value is no string.
    using Values = QMap<QString, std::optional<QString>>;

    /// Where it stands, and what comes of the fetches and activations from now on.
    struct State {
        Values server = {}, fetched = {}, activated = {};
        RemoteConfigFetchStatus fetchStatus = RemoteConfigFetchStatus::Success;
        std::optional<ServiceError> fetchError = {}, activationError = {};
        std::optional<std::chrono::seconds> age = {}; ///< of the fetched values, if any
        int requestCount = 0;                         ///< how many fetches have asked the server
    };

    explicit InMemoryRemoteConfig(
        DispatchQueue reportsOn = DispatchQueue::global(QualityOfService::UserInitiated))
        : m_reportsOn(reportsOn) {}

    void setState(const State& state) {
        const std::lock_guard lock(m_mutex);
        m_state = state;
    }
    int requestCount() const {
        const std::lock_guard lock(m_mutex);
        return m_state.requestCount;
    }

    void fetchWithExpirationDuration(std::chrono::seconds expirationDuration,
                                     FetchCompletion completion) override {
        using enum RemoteConfigFetchStatus;
        const std::lock_guard lock(m_mutex);
        const bool isNeeded = m_state.age.value_or(expirationDuration) >= expirationDuration;
        const auto status = isNeeded ? m_state.fetchStatus : Success;
        const auto error = isNeeded ? m_state.fetchError : std::nullopt;
        m_state.requestCount += isNeeded;
        if (isNeeded && status == Success && !error) {
            m_state.fetched = m_state.server;
            m_state.age = std::chrono::seconds::zero();
        }
        m_reportsOn.async([completion, status, error] { completion(status, error); });
    }

    void activateWithCompletion(ActivateCompletion completion) override {
        const std::lock_guard lock(m_mutex);
        const bool changed = !m_state.activationError && m_state.activated != m_state.fetched;
        if (changed)
            m_state.activated = m_state.fetched;
        m_reportsOn.async(
            [completion, changed, error = m_state.activationError] { completion(changed, error); });
    }

    std::optional<QString> stringValueForKey(const QString& key) const override {
        const std::lock_guard lock(m_mutex);
        return m_state.activated.value(key);
    }

    QSet<QString> keysWithPrefix(const QString& prefix) const override {
        const std::lock_guard lock(m_mutex);
        QStringList keys = m_state.activated.keys();
        keys.removeIf([&prefix](const QString& key) { return !key.startsWith(prefix); });
        return {keys.begin(), keys.end()};
    }

private:
    const DispatchQueue m_reportsOn;
    mutable std::mutex m_mutex;
    State m_state;
};

} // namespace reelsmith
