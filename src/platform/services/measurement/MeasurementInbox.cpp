// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/MeasurementInbox.h"

#include <utility>

namespace reelsmith {

void MeasurementInbox::post(Entry entry) {
    const std::lock_guard lock(m_mutex);
    m_next.entries.append(std::move(entry));
    m_changed.notify_one();
}

void MeasurementInbox::postAnswer(const ServiceResult& answer) {
    const std::lock_guard lock(m_mutex);
    m_next.answer = answer;
    m_changed.notify_one();
}

void MeasurementInbox::close() {
    const std::lock_guard lock(m_mutex);
    m_next.isClosed = true;
    m_changed.notify_one();
}

MeasurementInbox::Delivery MeasurementInbox::take(std::optional<std::chrono::milliseconds> patience) {
    std::unique_lock lock(m_mutex);
    const auto isReady = [this] { return hasSomething(); };
    if (patience)
        m_changed.wait_for(lock, *patience, isReady);
    else
        m_changed.wait(lock, isReady);
    return std::exchange(m_next, {});
}

} // namespace reelsmith
