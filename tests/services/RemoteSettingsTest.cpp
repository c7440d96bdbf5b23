// SPDX-License-Identifier: GPL-3.0-or-later
#include "RemoteSettings/RemoteSettings.h"

#include "RemoteSettings/Environment.h"
#include "platform/services/Unconfigured.h"

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

struct OnByDefault {
    static constexpr QLatin1StringView key = ::key;
    static constexpr bool defaultValue = true;
};

struct OffByDefault {
    static constexpr QLatin1StringView key = ::key;
    static constexpr bool defaultValue = false;
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
        m_service->setActivatedValues({{key, text}});
        return m_settings->value(ScenarioParameter<T>{key, defaultValue});
    }

    std::shared_ptr<InMemoryRemoteConfig> m_service = std::make_shared<InMemoryRemoteConfig>();
    std::shared_ptr<RemoteSettings> m_settings = std::make_shared<RemoteSettings>(m_service);
    ConsoleCapture m_console;
};

} // namespace

TEST_F(RemoteSettingsTest, FetchedValuesAreInForceAndPrinted) {
    m_service->setServerValues({{key, u"on"_s}});
    EXPECT_EQ(m_settings->value(ScenarioParameter<QString>{key, u"off"_s}), "off");
    fetch();
    EXPECT_EQ(m_settings->value(ScenarioParameter<QString>{key, u"off"_s}), "on");
    EXPECT_EQ(m_console.lines(), (QStringList{u"Activate remote configs successfuly"_s,
                                              u"\nREMOTE CONFIGS:"_s, u"    key: on"_s, u""_s}));
}

TEST_F(RemoteSettingsTest, AKeyWithoutTextIsPrintedAsNull) {
    m_service->setActivatedValues({{key, std::nullopt}});
    m_settings->printRemoteConfigs();
    EXPECT_EQ(m_console.lines(), (QStringList{u"\nREMOTE CONFIGS:"_s, u"    key: (null)"_s, u""_s}));
}

TEST_F(RemoteSettingsTest, AnActivationWithoutAnyKeyPrintsNoBlock) {
    fetch();
    EXPECT_EQ(m_console.lines(), QStringList{u"Activate remote configs successfuly"_s});
}

TEST_F(RemoteSettingsTest, FailuresArePrintedActivateNothingAndComplete) {
    m_service->setServerValues({{key, u"on"_s}});
    m_service->setFetchOutcome(RemoteConfigFetchStatus::Success, ServiceError{u"offline"_s});
    fetch();
    m_service->setFetchOutcome(RemoteConfigFetchStatus::Throttled, std::nullopt);
    fetch();
    m_service->setFetchOutcome(RemoteConfigFetchStatus::Success, std::nullopt);
    m_service->setActivationError({u"no room"_s});
    fetch();
    EXPECT_EQ(m_console.lines(), (QStringList{u"Failed to fetch scenario: offline"_s,
                                              u"Failed to fetch scenario with status 3"_s,
                                              u"Failed to activate remote configs: no room"_s}));
    EXPECT_EQ(m_settings->value(ScenarioParameter<QString>{key, u"off"_s}), "off");
}

TEST_F(RemoteSettingsTest, ValuesYoungerThanAnHourAreNotFetchedAgain) {
    fetch();
    m_service->letTimePass(59min);
    fetch();
    EXPECT_EQ(m_service->requestCount(), 1);
    m_service->letTimePass(1min);
    fetch();
    EXPECT_EQ(m_service->requestCount(), 2);
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
    EXPECT_EQ(remote(u""_s, u"default"_s), "default");
    EXPECT_EQ(remote(std::nullopt, u"default"_s), "default");
}

TEST_F(RemoteSettingsTest, TogglesFollowTheBooleanRule) {
    const QMap<QString, std::optional<bool>> cases = {
        {"true", true}, {"TRUE", true}, {"1", true}, {"false", false}, {"False", false}, {"0", false},
        {"yes", {}},    {"on", {}},     {"01", {}},  {" true", {}},    {"true ", {}},    {"", {}}};
    for (const auto& [text, value] : cases.asKeyValueRange()) {
        m_service->setActivatedValues({{key, text}});
        EXPECT_EQ(m_settings->isEnabled<OffByDefault>(), value.value_or(false)) << text.toStdString();
        EXPECT_EQ(m_settings->isEnabled<OnByDefault>(), value.value_or(true)) << text.toStdString();
    }
}

TEST_F(RemoteSettingsTest, IntegersAreDecimalDigitsWithAnOptionalSign) {
    const QMap<QString, qint64> integers = {{"7", 7},
                                            {"+7", 7},
                                            {"-0", 0},
                                            {"007", 7},
                                            {"9223372036854775807", std::numeric_limits<qint64>::max()},
                                            {"-9223372036854775808", std::numeric_limits<qint64>::min()}};
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

TEST_F(RemoteSettingsTest, WithNothingConfiguredAFetchFailsAndDefaultsStand) {
    m_settings = std::make_shared<RemoteSettings>(unconfiguredBackends().remoteConfig);
    fetch();
    EXPECT_EQ(m_console.lines(),
              QStringList{u"Failed to fetch scenario: No remote configuration service is configured"_s});
    EXPECT_TRUE(m_settings->isEnabled<OnByDefault>());
    m_settings->printRemoteConfigs();
    EXPECT_EQ(m_console.lines().size(), 1);
}

TEST(EnvironmentValue, KeepsTheFirstCandidate) {
    EXPECT_EQ(EnvironmentValue(1, 2).value(), 1);
    EXPECT_EQ(EnvironmentValue(1, 2, 3).value(), 1);
}
