// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Analytics.h"

#include <QString>

namespace reelsmith {

/// An event as it was logged.
struct MeasuredEvent {
    QString id;                 ///< a UUID, by which a repeated upload can be told
    qint64 unixNanoseconds = 0; ///< when it was logged
    QString name;
    AnalyticsParameters parameters;

    /// An event of now, with an id of its own. Any thread.
    static MeasuredEvent now(const QString& name, const AnalyticsParameters& parameters);
};

/// A property of the user, which every later event carries.
struct UserProperty {
    QString name;
    QString value;
};

/// An event as the database gives it back.
struct StoredEvent {
    qint64 sequence = 0; ///< grows with each event that is stored, and is never used twice
    MeasuredEvent event;
    AnalyticsParameters properties; ///< those in force when it was stored; all of them texts
};

/// The values as JSON, and back; what is no such text yields none. 64 bits of an integer survive.
QString textOfParameters(const AnalyticsParameters& parameters);
AnalyticsParameters parametersOfText(const QString& text);

} // namespace reelsmith
