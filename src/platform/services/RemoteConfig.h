// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/ServiceError.h"

#include <QSet>
#include <QString>
#include <chrono>
#include <functional>
#include <optional>

namespace reelsmith {

/// How a fetch ended; written to the console as its number.
enum class RemoteConfigFetchStatus { NoFetchYet = 0, Success = 1, Failure = 2, Throttled = 3 };

/// The remote configuration service: values are fetched first, and seen from their activation on.
/// Completions run once, on a thread of the service's choosing, never before the call has returned.
class RemoteConfig {
public:
    using FetchCompletion =
        std::function<void(RemoteConfigFetchStatus status, const std::optional<ServiceError>& error)>;
    using ActivateCompletion = std::function<void(bool changed, const std::optional<ServiceError>& error)>;

    virtual ~RemoteConfig() = default;

    /// Fetches the remote values, unless the last fetched ones are younger than `expirationDuration`.
    virtual void fetchWithExpirationDuration(std::chrono::seconds expirationDuration,
                                             FetchCompletion completion) = 0;

    /// Puts the last fetched values into force. `changed` tells whether that made a difference.
    virtual void activateWithCompletion(ActivateCompletion completion) = 0;

    /// The activated value of `key`, none when there is none. Any thread.
    virtual std::optional<QString> stringValueForKey(const QString& key) const = 0;

    /// The keys of all activated values that begin with `prefix`. Any thread.
    virtual QSet<QString> keysWithPrefix(const QString& prefix) const = 0;
};

} // namespace reelsmith
