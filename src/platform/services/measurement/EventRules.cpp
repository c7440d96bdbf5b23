// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/EventRules.h"

#include <algorithm>

namespace reelsmith {

namespace {

bool isLetter(QChar character) {
    return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
}

bool mayFollow(QChar character) {
    return isLetter(character) || (character >= u'0' && character <= u'9') || character == u'_';
}

bool isName(const QString& text, qsizetype longest) {
    return !text.isEmpty() && text.size() <= longest && isLetter(text.front()) &&
           std::ranges::all_of(text, mayFollow);
}

bool isEventName(const QString& text) {
    return isName(text, EventRules::longestEventName) && !text.startsWith(QLatin1StringView("reelsmith_")) &&
           !text.startsWith(QLatin1StringView("measurement_"));
}

// Never between the halves of a surrogate pair.
QString firstCodePoints(const QString& text, qsizetype count) {
    qsizetype end = 0;
    while (end < text.size() && count-- > 0) {
        const bool isPair =
            text[end].isHighSurrogate() && end + 1 < text.size() && text[end + 1].isLowSurrogate();
        end += isPair ? 2 : 1;
    }
    return text.first(end);
}

} // namespace

std::optional<MeasuredEvent> EventRules::checked(MeasuredEvent event) {
    if (!isEventName(event.name)) {
        m_tally.add(Loss::EventName, event.name);
        return std::nullopt;
    }
    event.parameters = checkedParameters(event.parameters, event.name);
    return event;
}

std::optional<UserProperty> EventRules::checked(UserProperty property) {
    if (!isName(property.name, longestPropertyName)) {
        m_tally.add(Loss::PropertyName, property.name);
        return std::nullopt;
    }
    property.value = cut(property.value, longestPropertyValue, Loss::PropertyValue, property.name);
    return property;
}

AnalyticsParameters EventRules::checkedParameters(const AnalyticsParameters& parameters,
                                                  const QString& eventName) {
    AnalyticsParameters good;
    for (auto parameter = parameters.begin(); parameter != parameters.end(); ++parameter) {
        const QString& name = parameter.key();
        AnalyticsValue value = parameter.value();
        if (!isName(name, longestParameterName)) {
            m_tally.add(Loss::ParameterName, name);
        } else if (good.size() == mostParameters) {
            m_tally.add(Loss::ParameterCount, eventName);
        } else {
            if (QString* const text = std::get_if<QString>(&value))
                *text = cut(*text, longestParameterValue, Loss::ParameterValue, name);
            good.insert(name, value);
        }
    }
    return good;
}

QString EventRules::cut(const QString& text, qsizetype longest, Loss loss, const QString& name) {
    const QString start = firstCodePoints(text, longest);
    if (start.size() < text.size())
        m_tally.add(loss, name);
    return start;
}

} // namespace reelsmith
