// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/ServiceError.h"

#include <QString>
#include <functional>
#include <optional>

namespace reelsmith {

/// What an installation proves itself with.
struct InstallationAuthToken {
    QString authToken;
};

/// The service that tells installations of the application apart.
class Installations {
public:
    enum class Refresh { IfExpired, Forced };

    using AuthTokenCompletion = std::function<void(const std::optional<InstallationAuthToken>& token,
                                                   const std::optional<ServiceError>& error)>;

    virtual ~Installations() = default;

    /// Asks for the token. The completion runs once, on a thread of the service's choosing, never before
    /// this call has returned.
    virtual void authTokenForcingRefresh(Refresh refresh, AuthTokenCompletion completion) = 0;
};

} // namespace reelsmith
