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

    void setState(const State& state);
    int requestCount() const;

    void fetchWithExpirationDuration(std::chrono::seconds expirationDuration,
                                     FetchCompletion completion) override;
    void activateWithCompletion(ActivateCompletion completion) override;
    std::optional<QString> stringValueForKey(const QString& key) const override;
    QSet<QString> keysWithPrefix(const QString& prefix) const override;

private:
    void fetchFromServer();

    const DispatchQueue m_reportsOn;
    mutable std::mutex m_mutex;
    State m_state;
};

} // namespace reelsmith
