// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Installations.h"

#include <mutex>

namespace reelsmith {

/// An installation service that answers as it was told to: until then with neither a token nor an error.
/// A forced refresh yields a new token, numbered. Any thread.
class InMemoryInstallations : public Installations {
public:
    void reset();
    void setToken(const QString& token);
    void setError(const ServiceError& error);

    void authTokenForcingRefresh(Refresh refresh, AuthTokenCompletion completion) override;

private:
    std::mutex m_mutex;
    std::optional<QString> m_token;
    std::optional<ServiceError> m_error;
    int m_refreshCount = 0;
};

} // namespace reelsmith
