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

    void reset();

    QList<Event> events() const;
    QMap<QString, QString> userProperties() const;

    void logEventWithName(const QString& name, const std::optional<AnalyticsParameters>& parameters) override;
    void setUserPropertyString(const QString& value, const QString& name) override;

private:
    mutable std::mutex m_mutex;
    QList<Event> m_events;
    QMap<QString, QString> m_userProperties;
};

} // namespace reelsmith
