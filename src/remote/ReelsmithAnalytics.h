// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Analytics.h"

#include <QString>
#include <optional>

namespace reelsmith {

/// The way of every event to the analytics service. An event goes there only if the user's consent to usage
/// data stands at that moment; otherwise it is dropped for good. Any thread.
class ReelsmithAnalytics {
public:
    ReelsmithAnalytics() = delete;

    /// Sends the event `name`, one of `AnalyticsEvents`.
    static void logEvent(const QString& name,
                         const std::optional<AnalyticsParameters>& parameters = std::nullopt);

    /// Sends "converted_failure", with the reason if there is one.
    static void logConvertedFailure(const std::optional<QString>& reason);

    /// Sends "evaluated_app" with the number of stars.
    static void logEvaluatedApp(qint64 rating);
};

} // namespace reelsmith
