// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/EventRules.h"

#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

const QString smile = u"\U0001F600"_s; // two UTF-16 units, four bytes, one character

QString repeated(const QString& text, int count) {
    return text.repeated(count);
}

struct NameCase {
    QString name;
    bool isGood;
};

struct TextCase {
    QString text;
    QString kept;
};

} // namespace

TEST(EventRules, NamesBeginWithALetterAndAreShort) {
    const NameCase cases[] = {
        {u"a"_s, true},
        {u"Converted_2_success"_s, true},
        {repeated(u"a"_s, 40), true},
        {repeated(u"a"_s, 41), false},
        {u""_s, false},
        {u"2nd"_s, false},
        {u"_a"_s, false},
        {u"a b"_s, false},
        {u"a-b"_s, false},
        {u"é"_s, false},
        {u"reelsmith_start"_s, false},
        {u"measurement_start"_s, false},
        {u"reelsmith"_s, true},
        {u"Reelsmith_start"_s, true},
    };
    for (const auto& [name, isGood] : cases) {
        LossTally tally;
        EXPECT_EQ(EventRules(tally).checked(MeasuredEvent::now(name, {})).has_value(), isGood)
            << name.toStdString();
        EXPECT_EQ(tally.counts().value(Loss::EventName), isGood ? 0 : 1) << name.toStdString();
    }
}

TEST(EventRules, TextsAreCutByCharacters) {
    const TextCase cases[] = {
        {repeated(u"é"_s, 100), repeated(u"é"_s, 100)},
        {repeated(u"é"_s, 101), repeated(u"é"_s, 100)},
        {repeated(smile, 100), repeated(smile, 100)},
        {repeated(smile, 101), repeated(smile, 100)},
        {u"a"_s + repeated(smile, 100), u"a"_s + repeated(smile, 99)},
    };
    for (const auto& [text, kept] : cases) {
        LossTally tally;
        const auto event =
            EventRules(tally).checked(MeasuredEvent::now(u"e"_s, {{u"reason"_s, text}, {u"n"_s, qint64{1}}}));
        EXPECT_EQ(event->parameters, (AnalyticsParameters{{u"reason"_s, kept}, {u"n"_s, qint64{1}}}));
        EXPECT_EQ(tally.counts().value(Loss::ParameterValue), text == kept ? 0 : 1);
    }
}

TEST(EventRules, AnEventKeepsItsGoodParametersAndNoMoreThan25) {
    AnalyticsParameters parameters{{repeated(u"x"_s, 41), qint64{1}}, {u"a b"_s, qint64{1}}};
    for (int i = 0; i < 27; ++i)
        parameters.insert(u"p%1"_s.arg(i, 2, 10, QLatin1Char('0')), qint64{i});
    LossTally tally;
    const auto event = EventRules(tally).checked(MeasuredEvent::now(u"e"_s, parameters));
    EXPECT_EQ(event->parameters.size(), 25);
    EXPECT_EQ(event->parameters.lastKey(), u"p24"_s);
    EXPECT_EQ(tally.counts(), (QMap<Loss, qint64>{{Loss::ParameterName, 2}, {Loss::ParameterCount, 2}}));
}

TEST(EventRules, PropertiesAreShort) {
    LossTally tally;
    EventRules rules(tally);
    EXPECT_EQ(rules.checked(UserProperty{repeated(u"p"_s, 24), repeated(smile, 37)})->value,
              repeated(smile, 36));
    EXPECT_FALSE(rules.checked(UserProperty{repeated(u"p"_s, 25), u"1"_s}));
    EXPECT_EQ(tally.counts(), (QMap<Loss, qint64>{{Loss::PropertyName, 1}, {Loss::PropertyValue, 1}}));
}
