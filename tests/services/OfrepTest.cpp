// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Ofrep.h"

#include "platform/services/RetryTime.h"

#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

TEST(Ofrep, ValuesAreTextsAsTheyWereWritten) {
    const std::map<QByteArray, std::optional<QString>> cases{
        {R"("value":"a \"1\" \u00e9")", u"a \"1\" é"_s},
        {R"("value":"")", u""_s},
        {R"("value":true,"reason":"STATIC","variant":"on","metadata":{"a":1})", u"true"_s},
        {R"("value":false)", u"false"_s},
        {R"("value":9007199254740993)", u"9007199254740993"_s},
        {R"("value":-18446744073709551616)", u"-18446744073709551616"_s},
        {R"("value":0.1000000000000000055511)", u"0.1000000000000000055511"_s},
        {R"("value":1E400)", u"1E400"_s},
        {R"("value": { "b" : [1.0, "2", null], "a" : -0.5e-7 } )", uR"({"a":-0.5e-7,"b":[1.0,"2",null]})"_s},
        {R"("value":null)", std::nullopt},
        {R"("reason":"DEFAULT")", std::nullopt}};
    for (const auto& [entry, text] : cases) {
        const auto flags = Ofrep::flags("{\"flags\":[{\"key\":\"k\"," + entry + "}],\"metadata\":{}}");
        ASSERT_TRUE(flags) << entry.data();
        EXPECT_EQ(*flags, (RemoteValues{{u"k"_s, text}})) << entry.data();
    }
}

TEST(Ofrep, FlagsWithAnErrorOrWithoutAKeyAreAbsent) {
    const auto flags = Ofrep::flags(R"({"flags":[{"key":"a","errorCode":"GENERAL","value":"x"},
        {"key":"c","errorCode":null,"value":"d"},{"value":"y"},{"key":7,"value":"z"},7,{"key":"b","value":"1"},{"key":"b","value":"2"}]})");
    EXPECT_EQ(flags, (RemoteValues{{u"b"_s, u"2"_s}, {u"c"_s, u"d"_s}}));
    EXPECT_EQ(Ofrep::flags(R"({"flags":[]})"), RemoteValues());
}

TEST(Ofrep, MalformedAnswersAreErrors) {
    for (const QByteArray body :
         {"", "{}", "[]", "{\"flags\":{}}", "{\"flags\":[]", "{\"flags\":[{\"key\":\"k\",\"value\":01}]}",
          "{\"flags\":[{\"key\":\"k\",\"value\":1 2}]}", "{\"flags\":[{\"key\":\"k\",\"value\":+1}]}",
          "{\"flags\":[{\"key\":\"k\",\"value\":1.}]}", "{\"flags\":[{\"key\":\"k\",\"value\":\"open}]}"})
        EXPECT_FALSE(Ofrep::flags(body)) << body.data();
}

TEST(RetryTime, IsToldInSecondsOrAsADate) {
    const QDateTime now(QDate(2026, 2, 28), QTime(23, 59), Qt::UTC);
    const auto later = [&now](qint64 seconds) { return std::optional(now.addSecs(seconds)); };
    const std::map<QByteArray, std::optional<QDateTime>> cases{
        {"0", later(0)},
        {" 120 ", later(120)},
        {"4000000000", later(7 * 24 * 3600)},
        {"Sun, 01 Mar 2026 00:00:00 GMT", later(60)},
        {"2026-03-01T00:00:00Z", later(60)},
        {"2025-03-01T00:00:00Z", later(-364 * 24 * 3600 - 86340)},
        {"", std::nullopt},
        {"-1", std::nullopt},
        {"soon", std::nullopt}};
    for (const auto& [text, time] : cases)
        EXPECT_EQ(retryTime(text, now), time) << text.data();
}
