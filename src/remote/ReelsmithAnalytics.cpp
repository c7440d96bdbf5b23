// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/ReelsmithAnalytics.h"

#include "platform/services/Services.h"
#include "remote/AnalyticsEvents.h"
#include "settings/UserSettings.h"

namespace reelsmith {

void ReelsmithAnalytics::logEvent(const QString& name, const std::optional<AnalyticsParameters>& parameters) {
    if (UserSettings::shared().sendUsageData())
        Services::analytics()->logEventWithName(name, parameters);
}

void ReelsmithAnalytics::logConvertedFailure(const std::optional<QString>& reason) {
    AnalyticsParameters parameters;
    if (reason)
        parameters.insert(QStringLiteral("reason"), *reason);
    logEvent(AnalyticsEvents::convertedFailure, parameters);
}

void ReelsmithAnalytics::logEvaluatedApp(qint64 rating) {
    logEvent(AnalyticsEvents::evaluatedApp, AnalyticsParameters{{QStringLiteral("rating"), rating}});
}

} // namespace reelsmith
