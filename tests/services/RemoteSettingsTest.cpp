// SPDX-License-Identifier: GPL-3.0-or-later
#include "RemoteSettings/RemoteSettings.h"

#include "fakes/ConsoleCapture.h"
#include "fakes/InMemoryRemoteConfig.h"

#include <QCoreApplication>
#include <future>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto key = "key"_L1;

template<bool value>
struct Toggle {
    static constexpr QLatin1StringView key = ::key;
    static constexpr bool defaultValue = value;
};

class RemoteSettingsTest : public testing::Test {
protected:
    // Waits for the completion, which comes on the service's thread.
    void fetch() const {
        std::promise<void> completed;
        m_settings->fetch([&completed] { completed.set_value(); });
        completed.get_future().wait();
    }

    template<typename T>
    T remote(const std::optional<QString>& text, T defaultValue) const {
        m_service->setState({.activated = {{key, text}}});
        return m_settings->value(ScenarioParameter<T>{key, defaultValue});
    }

    QString value() const { return m_settings->value(ScenarioParameter<QString>{key, u"off"_s}); }

    std::shared_ptr<InMemoryRemoteConfig> m_service = std::make_shared<InMemoryRemoteConfig>();
    std::shared_ptr<RemoteSettings> m_settings = std::make_shared<RemoteSettings>(m_service);
    ConsoleCapture m_console;
};

} // namespace

TEST_F(RemoteSettingsTest, FetchedValuesAreInForceAndPrinted) {
    fetch();
    m_service->setState({.server = {{key, u"on"_s}}});
    EXPECT_EQ(value(), "off");
    fetch();
    EXPECT_EQ(value(), "on");
    m_service->setState({.server = {{key, std::nullopt}}});
    fetch();
    const QString activated = u"Activate remote configs successfuly"_s, block = u"\nREMOTE CONFIGS:"_s;
    EXPECT_EQ(m_console.lines(), (QStringList{activated, activated, block, u"    key: on"_s, u""_s, activated,
                                              block, u"    key: (null)"_s, u""_s}));
}

TEST_F(RemoteSettingsTest, FailuresArePrintedActivateNothingAndComplete) {
    using Status = RemoteConfigFetchStatus;
    const InMemoryRemoteConfig::Values server{{key, u"on"_s}};
    m_service->setState({.server = server, .fetchError = ServiceError{u"offline"_s}});
    fetch();
    m_service->setState({.server = server, .fetchStatus = Status::Throttled});
    fetch();
    m_service->setState({.server = server, .activationError = ServiceError{u"no room"_s}});
    fetch();
    EXPECT_EQ(m_console.lines(), (QStringList{u"Failed to fetch scenario: offline"_s,
                                              u"Failed to fetch scenario with status 3"_s,
                                              u"Failed to activate remote configs: no room"_s}));
    EXPECT_EQ(value(), "off");
}

TEST_F(RemoteSettingsTest, ValuesYoungerThanAnHourAreNotFetchedAgain) {
    for (const auto age : {59min, 60min}) {
        m_service->setState({.age = age});
        fetch();
        EXPECT_EQ(m_service->requestCount(), age < 60min ? 0 : 1);
    }
}

TEST(RemoteSettings, AFetchThatSucceedsAfterTheSettingsAreGoneDoesNothing) {
    const ConsoleCapture capture;
    const auto service = std::make_shared<InMemoryRemoteConfig>(DispatchQueue::main());
    auto settings = std::make_shared<RemoteSettings>(service);
    bool completed = false;
    settings->fetch([&completed] { completed = true; });
    settings.reset();
    for (int turn = 0; turn < 3; ++turn)
        QCoreApplication::sendPostedEvents();
    EXPECT_FALSE(completed);
    EXPECT_TRUE(capture.lines().isEmpty());
}

TEST_F(RemoteSettingsTest, TextIsTakenVerbatimUnlessEmpty) {
    EXPECT_EQ(remote(u" Two words "_s, u"default"_s), " Two words ");
    for (const std::optional<QString>& text : {std::optional(u""_s), std::optional<QString>()})
        EXPECT_EQ(remote(text, u"default"_s), "default");
}

TEST_F(RemoteSettingsTest, TogglesFollowTheBooleanRule) {
    const QMap<QString, std::optional<bool>> cases = {
        {"true", true}, {"TRUE", true}, {"1", true}, {"false", false}, {"False", false}, {"0", false},
        {"yes", {}},    {"on", {}},     {"01", {}},  {" true", {}},    {"true ", {}},    {"", {}}};
    for (const auto& [text, value] : cases.asKeyValueRange()) {
        m_service->setState({.activated = {{key, text}}});
        EXPECT_EQ(m_settings->isEnabled<Toggle<false>>(), value.value_or(false)) << text.toStdString();
        EXPECT_EQ(m_settings->isEnabled<Toggle<true>>(), value.value_or(true)) << text.toStdString();
    }
}

TEST_F(RemoteSettingsTest, IntegersAreDecimalDigitsWithAnOptionalSign) {
    constexpr qint64 greatest = std::numeric_limits<qint64>::max();
    const QMap<QString, qint64> integers = {{"7", 7},
                                            {"+7", 7},
                                            {"-0", 0},
                                            {"007", 7},
                                            {"9223372036854775807", greatest},
                                            {"-9223372036854775808", -greatest - 1}};
    for (const auto& [text, value] : integers.asKeyValueRange())
        EXPECT_EQ(remote<qint64>(text, 42), value) << text.toStdString();
    for (const char* text :
         {"9223372036854775808", "7.0", "", "+", "-", "+-7", "++7", " 7", "7 ", "0x7", "\u0667"})
        EXPECT_EQ(remote<qint64>(text, 42), 42) << text;
}

TEST_F(RemoteSettingsTest, WhatDoesNotFitTheTypeYieldsItsDefault) {
    EXPECT_EQ(remote<std::int8_t>(u"127"_s, 5), 127);
    EXPECT_EQ(remote<std::int8_t>(u"128"_s, 5), 5);
    EXPECT_EQ(remote<double>(u"7"_s, 0.5), 0.5);
    EXPECT_EQ(remote<unsigned>(u"7"_s, 5U), 5U);
}
