// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/MeasurementEngine.h"

#include "platform/linux/network/NetworkServiceTransport.h"
#include "platform/services/Services.h"
#include "remote/ReelsmithAnalytics.h"

#include "fakes/Collector.h"

#include <QJsonArray>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <seccomp.h>
#include <sys/socket.h>
#include <thread>

using namespace reelsmith;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class MeasurementEngineTest : public testing::Test {
protected:
    std::unique_ptr<MeasurementEngine> engine(const std::optional<QUrl>& url = {}) {
        UploadParts parts{.transport = std::make_shared<NetworkServiceTransport>(),
                          .installationId = [] { return u"installation"_s; },
                          .shortestRetryWait = 50ms};
        if (url)
            parts.endpoint = ServiceConfiguration::Endpoint{*url, {{"X-Key", "secret"}}};
        return std::make_unique<MeasurementEngine>(m_folder.path(), parts);
    }

    QTemporaryDir m_folder;
    Collector m_collector;
};

/// The names of the events of a request.
QStringList names(const QJsonObject& request) {
    QStringList names;
    for (const QJsonValue group : request[u"body"_s][u"resourceLogs"_s].toArray()) {
        for (const QJsonValue record : group[u"scopeLogs"_s][0][u"logRecords"_s].toArray())
            names.append(record[u"eventName"_s].toString());
    }
    return names;
}

QJsonValue firstRecord(const QJsonObject& request) {
    return request[u"body"_s][u"resourceLogs"_s][0][u"scopeLogs"_s][0][u"logRecords"_s][0];
}

void log(Analytics& engine, const QString& name) {
    engine.logEventWithName(name, std::nullopt);
}

/// From now on the process dies of a socket of the internet.
void forbidInternet() {
    const scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
    for (const int family : {AF_INET, AF_INET6})
        seccomp_rule_add(filter, SCMP_ACT_KILL_PROCESS, SCMP_SYS(socket), 1,
                         SCMP_A0(SCMP_CMP_EQ, static_cast<scmp_datum_t>(family)));
    if (seccomp_load(filter) != 0)
        std::abort();
}

} // namespace

TEST_F(MeasurementEngineTest, WhatWasLoggedArrives) {
    const auto measured = engine(m_collector.url(u"200"_s));
    measured->setUserPropertyString(u"|3|"_s, u"participating_tests"_s);
    log(*measured, u"no good name"_s);
    Services::configure({nullptr, nullptr, {std::shared_ptr<void>(), measured.get()}});
    ReelsmithAnalytics::logEvaluatedApp(4);
    const QJsonObject request = m_collector.nextRequest();
    Services::configure({});

    EXPECT_EQ(request[u"headers"_s][u"content-type"_s], u"application/json"_s);
    EXPECT_EQ(request[u"headers"_s][u"content-encoding"_s], u"gzip"_s);
    EXPECT_EQ(request[u"headers"_s][u"x-key"_s], u"secret"_s);
    const QJsonValue resource = request[u"body"_s][u"resourceLogs"_s][0][u"resource"_s];
    EXPECT_EQ(resource[u"attributes"_s][2][u"value"_s][u"stringValue"_s], u"installation"_s);
    EXPECT_EQ(resource[u"attributes"_s][3][u"value"_s][u"stringValue"_s], u"|3|"_s);
    EXPECT_EQ(names(request), QStringList{u"evaluated_app"_s});
    EXPECT_EQ(firstRecord(request)[u"attributes"_s][1][u"value"_s][u"intValue"_s], u"4"_s);
}

TEST_F(MeasurementEngineTest, AnOverloadedCollectorGetsTheSameLater) {
    const auto measured = engine(m_collector.url(u"429:1,503,200"_s));
    log(*measured, u"event"_s);
    const QJsonObject first = m_collector.nextRequest();
    EXPECT_EQ(names(first), QStringList{u"event"_s});
    EXPECT_EQ(m_collector.nextRequest()[u"body"_s], first[u"body"_s]);
    EXPECT_EQ(m_collector.nextRequest()[u"body"_s], first[u"body"_s]);
}

TEST_F(MeasurementEngineTest, AnEndDoesNotWaitForTheCollectorAndLosesNothing) {
    {
        const auto measured = engine(m_collector.url(u"never"_s));
        log(*measured, u"under_way"_s);
        EXPECT_EQ(names(m_collector.nextRequest()), QStringList{u"under_way"_s});
        log(*measured, u"last"_s);
    }
    const auto measured = engine(m_collector.url(u"200"_s));
    EXPECT_EQ(names(m_collector.nextRequest()), (QStringList{u"under_way"_s, u"last"_s}));
}

TEST_F(MeasurementEngineTest, SwitchedOffNothingIsCollected) {
    {
        const auto offline = engine();
        log(*offline, u"before"_s);
        offline->setCollectionEnabled(false);
        log(*offline, u"meanwhile"_s);
        offline->setCollectionEnabled(true);
        log(*offline, u"after"_s);
    }
    const auto measured = engine(m_collector.url(u"200"_s));
    EXPECT_EQ(names(m_collector.nextRequest()), QStringList{u"after"_s});
}

TEST_F(MeasurementEngineTest, OnlyWithAnEndpointASocketIsOpened) {
    const auto measure = [this](const std::optional<QUrl>& url) {
        forbidInternet();
        auto measured = engine(url);
        log(*measured, u"event"_s);
        if (url)
            m_collector.nextRequest(); // never comes
        LossTally tally;
        EventDatabase database(m_folder.path(), tally);
        while (database.oldest(1).isEmpty())
            std::this_thread::yield();
        measured.reset();
        std::exit(0);
    };
    EXPECT_EXIT(measure(std::nullopt), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(measure(m_collector.url(u"200"_s)), testing::KilledBySignal(SIGSYS), "");
}
