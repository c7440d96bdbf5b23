// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/measurement/LossTally.h"
#include "platform/services/measurement/MeasuredEvent.h"

#include <optional>

namespace reelsmith {

/// What may be measured. A name begins with a letter and goes on with letters, digits and "_" (of ASCII);
/// texts count by their Unicode code points. What breaks a rule is dropped, a text that is too long is cut,
/// and either is added to the tally.
class EventRules {
public:
    static constexpr qsizetype longestEventName = 40;
    static constexpr qsizetype mostParameters = 25;
    static constexpr qsizetype longestParameterName = 40;
    static constexpr qsizetype longestParameterValue = 100;
    static constexpr qsizetype longestPropertyName = 24;
    static constexpr qsizetype longestPropertyValue = 36;

    /// `tally` must outlive the rules.
    explicit EventRules(LossTally& tally) : m_tally(tally) {}

    /// The event as it may be stored; none where its name, which must not begin with one of the prefixes kept
    /// for the system, breaks the rules. Of too many parameters the last, by name, go.
    std::optional<MeasuredEvent> checked(MeasuredEvent event);

    /// The property as it may be stored; none where its name breaks the rules.
    std::optional<UserProperty> checked(UserProperty property);

private:
    AnalyticsParameters checkedParameters(const AnalyticsParameters& parameters, const QString& eventName);
    QString cut(const QString& text, qsizetype longest, Loss loss, const QString& name);

    LossTally& m_tally;
};

} // namespace reelsmith
