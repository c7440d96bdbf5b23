// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/FailureLatch.h"

#include <utility>

namespace reelsmith::media {

void FailureLatch::onFailure(std::function<void()> wake) {
    const std::lock_guard lock(m_mutex);
    if (m_error)
        wake();
    m_wakes.push_back(std::move(wake));
}

void FailureLatch::fail(Error error) {
    const std::lock_guard lock(m_mutex);
    if (m_error)
        return;
    m_error = std::move(error);
    for (const auto& wake : m_wakes)
        wake();
}

bool FailureLatch::hasFailed() const {
    const std::lock_guard lock(m_mutex);
    return m_error.has_value();
}

std::optional<Error> FailureLatch::error() const {
    const std::lock_guard lock(m_mutex);
    return m_error;
}

} // namespace reelsmith::media
