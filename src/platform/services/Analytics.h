// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <optional>
#include <variant>

namespace reelsmith {

using AnalyticsValue = std::variant<QString, qint64>;
using AnalyticsParameters = QMap<QString, AnalyticsValue>;

/// The analytics service. Neither call fails or waits: delivery is the service's own matter. Any thread.
class Analytics {
public:
    virtual ~Analytics() = default;

    /// Accepts one event. No parameters and an empty dictionary are different things.
    virtual void logEventWithName(const QString& name,
                                  const std::optional<AnalyticsParameters>& parameters) = 0;

    /// Sets a property that every later event of this installation carries.
    virtual void setUserPropertyString(const QString& value, const QString& name) = 0;
};

} // namespace reelsmith
