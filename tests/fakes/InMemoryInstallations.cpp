// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/InMemoryInstallations.h"

#include "platform/foundation/DispatchQueue.h"

namespace reelsmith {

void InMemoryInstallations::reset() {
    const std::lock_guard lock(m_mutex);
    m_token.reset();
    m_error.reset();
    m_refreshCount = 0;
}

void InMemoryInstallations::setToken(const QString& token) {
    const std::lock_guard lock(m_mutex);
    m_token = token;
}

void InMemoryInstallations::setError(const ServiceError& error) {
    const std::lock_guard lock(m_mutex);
    m_error = error;
}

void InMemoryInstallations::authTokenForcingRefresh(Refresh refresh, AuthTokenCompletion completion) {
    const std::lock_guard lock(m_mutex);
    if (refresh == Refresh::Forced)
        ++m_refreshCount;
    std::optional<InstallationAuthToken> token;
    if (m_token && !m_error)
        token = InstallationAuthToken{*m_token + QLatin1Char('#') + QString::number(m_refreshCount)};
    DispatchQueue::main().async([completion, token, error = m_error] { completion(token, error); });
}

} // namespace reelsmith
