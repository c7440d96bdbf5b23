// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/EventRules.h"

#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

const QString smile = u"\U0001F600"_s; // two UTF-16 units, four bytes, one character

struct EventRulesTest : testing::Test {
    std::optional<MeasuredEvent> check(const QString& name, const AnalyticsParameters& parameters = {}) {
        return rules.checked(MeasuredEvent::now(name, parameters));
    }

    LossTally tally;
    EventRules rules{tally};
};

} // namespace

TEST_F(EventRulesTest, NamesBeginWithALetterAndAreShort) {
    for (const QString& name :
         {u"a"_s, u"Converted_2"_s, u"a"_s.repeated(40), u"reelsmith"_s, u"Reelsmith_a"_s})
        EXPECT_TRUE(check(name)) << name.toStdString();
    const QStringList bad{u""_s,    u"a"_s.repeated(41), u"2nd"_s,          u"_a"_s, u"a b"_s, u"é"_s,
                          u"a-b"_s, u"reelsmith_a"_s,    u"measurement_a"_s};
    for (const QString& name : bad)
        EXPECT_FALSE(check(name)) << name.toStdString();
    EXPECT_EQ(tally.counts(), (QMap<Loss, qint64>{{Loss::EventName, bad.size()}}));
}

TEST_F(EventRulesTest, TextsAreCutByCharacters) {
    const QString mixed = u"a"_s + smile.repeated(100);
    EXPECT_EQ(check(u"e"_s, {{u"reason"_s, mixed}})->parameters,
              (AnalyticsParameters{{u"reason"_s, u"a"_s + smile.repeated(99)}}));
    EXPECT_EQ(rules.checked(UserProperty{u"p"_s.repeated(24), smile.repeated(37)})->value,
              smile.repeated(36));
    EXPECT_EQ(check(u"e"_s, {{u"a"_s, smile.repeated(100)}})->parameters.first(),
              AnalyticsValue(smile.repeated(100)));
    EXPECT_EQ(tally.counts(), (QMap<Loss, qint64>{{Loss::ParameterValue, 1}, {Loss::PropertyValue, 1}}));
}

TEST_F(EventRulesTest, WhatHasABadNameOrIsTooMuchGoesAlone) {
    AnalyticsParameters parameters{{u"x"_s.repeated(41), qint64{1}}, {u"a b"_s, qint64{1}}};
    for (int i = 10; i < 37; ++i)
        parameters.insert(u"p%1"_s.arg(i), qint64{i});
    EXPECT_EQ(check(u"e"_s, parameters)->parameters.lastKey(), u"p34"_s);
    EXPECT_FALSE(rules.checked(UserProperty{u"p"_s.repeated(25), u"1"_s}));
    EXPECT_EQ(
        tally.counts(),
        (QMap<Loss, qint64>{{Loss::ParameterName, 2}, {Loss::ParameterCount, 2}, {Loss::PropertyName, 1}}));
}
