// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/InMemoryRemoteConfig.h"

namespace reelsmith {

void InMemoryRemoteConfig::setState(const State& state) {
    const std::lock_guard lock(m_mutex);
    m_state = state;
}

int InMemoryRemoteConfig::requestCount() const {
    const std::lock_guard lock(m_mutex);
    return m_state.requestCount;
}

void InMemoryRemoteConfig::fetchWithExpirationDuration(std::chrono::seconds expirationDuration,
                                                       FetchCompletion completion) {
    const std::lock_guard lock(m_mutex);
    if (m_state.age && *m_state.age < expirationDuration) {
        m_reportsOn.async([completion] { completion(RemoteConfigFetchStatus::Success, std::nullopt); });
        return;
    }
    fetchFromServer();
    m_reportsOn.async([completion, status = m_state.fetchStatus, error = m_state.fetchError] {
        completion(status, error);
    });
}

void InMemoryRemoteConfig::fetchFromServer() {
    ++m_state.requestCount;
    if (m_state.fetchStatus != RemoteConfigFetchStatus::Success || m_state.fetchError)
        return;
    m_state.fetched = m_state.server;
    m_state.age = std::chrono::seconds::zero();
}

void InMemoryRemoteConfig::activateWithCompletion(ActivateCompletion completion) {
    const std::lock_guard lock(m_mutex);
    const bool changed = !m_state.activationError && m_state.activated != m_state.fetched;
    if (changed)
        m_state.activated = m_state.fetched;
    m_reportsOn.async([completion, changed, error = m_state.activationError] { completion(changed, error); });
}

std::optional<QString> InMemoryRemoteConfig::stringValueForKey(const QString& key) const {
    const std::lock_guard lock(m_mutex);
    return m_state.activated.value(key);
}

QSet<QString> InMemoryRemoteConfig::keysWithPrefix(const QString& prefix) const {
    const std::lock_guard lock(m_mutex);
    QSet<QString> keys;
    for (auto entry = m_state.activated.keyBegin(); entry != m_state.activated.keyEnd(); ++entry)
        if (entry->startsWith(prefix))
            keys.insert(*entry);
    return keys;
}

} // namespace reelsmith
