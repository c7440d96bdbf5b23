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

    explicit InMemoryRemoteConfig(
        DispatchQueue reportsOn = DispatchQueue::global(QualityOfService::UserInitiated));

    /// Forgets everything, the server's values included.
    void reset();

    /// What the server hands out from now on.
    void setServerValues(const Values& values);
    /// Values in force at once, as an earlier launch left them.
    void setActivatedValues(const Values& values);
    /// How the following fetches end instead of with success.
    void setFetchOutcome(RemoteConfigFetchStatus status, const std::optional<ServiceError>& error);
    /// What the following activations end with.
    void setActivationError(const ServiceError& error);
    /// Makes the last fetched values older.
    void letTimePass(std::chrono::seconds time);

    /// How many fetches have asked the server.
    int requestCount() const;

    void fetchWithExpirationDuration(std::chrono::seconds expirationDuration,
                                     FetchCompletion completion) override;
    void activateWithCompletion(ActivateCompletion completion) override;
    std::optional<QString> stringValueForKey(const QString& key) const override;
    QSet<QString> keysWithPrefix(const QString& prefix) const override;

private:
    struct State {
        Values server, fetched, activated;
        RemoteConfigFetchStatus fetchStatus = RemoteConfigFetchStatus::Success;
        std::optional<ServiceError> fetchError, activationError;
        std::optional<std::chrono::seconds> age; ///< of the fetched values, if any
        int requestCount = 0;
    };

    void fetchFromServer();

    const DispatchQueue m_reportsOn;
    mutable std::mutex m_mutex;
    State m_state;
};

} // namespace reelsmith
