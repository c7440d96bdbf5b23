// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Analytics.h"

#include <QList>
#include <mutex>

namespace reelsmith {

/// An analytics service that remembers what it was given, in order. Any thread.
class InMemoryAnalytics : public Analytics {
public:
    struct Event {
        QString name;
        std::optional<AnalyticsParameters> parameters;

        bool operator==(const Event&) const = default;
    };
    struct State {
        QList<Event> events = {};
        QMap<QString, QString> userProperties = {};
    };

    void reset() {
        const std::lock_guard lock(m_mutex);
        m_state = {};
    }
    State state() const {
        const std::lock_guard lock(m_mutex);
        return m_state;
    }

    void logEventWithName(const QString& name,
                          const std::optional<AnalyticsParameters>& parameters) override {
        const std::lock_guard lock(m_mutex);
        m_state.events.append({name, parameters});
    }
    void setUserPropertyString(const QString& value, const QString& name) override {
        const std::lock_guard lock(m_mutex);
        m_state.userProperties.insert(name, value);
    }

private:
    mutable std::mutex m_mutex;
    State m_state;
};

} // namespace reelsmith
