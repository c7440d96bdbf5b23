// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/InMemoryAnalytics.h"

namespace reelsmith {

void InMemoryAnalytics::reset() {
    const std::lock_guard lock(m_mutex);
    m_events.clear();
    m_userProperties.clear();
}

QList<InMemoryAnalytics::Event> InMemoryAnalytics::events() const {
    const std::lock_guard lock(m_mutex);
    return m_events;
}

QMap<QString, QString> InMemoryAnalytics::userProperties() const {
    const std::lock_guard lock(m_mutex);
    return m_userProperties;
}

void InMemoryAnalytics::logEventWithName(const QString& name,
                                         const std::optional<AnalyticsParameters>& parameters) {
    const std::lock_guard lock(m_mutex);
    m_events.append({name, parameters});
}

void InMemoryAnalytics::setUserPropertyString(const QString& value, const QString& name) {
    const std::lock_guard lock(m_mutex);
    m_userProperties.insert(name, value);
}

} // namespace reelsmith
