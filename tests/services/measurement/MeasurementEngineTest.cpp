// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/MeasurementEngine.h"

#include "platform/linux/network/NetworkServiceTransport.h"
#include "platform/services/Services.h"
#include "remote/ReelsmithAnalytics.h"

#include "fakes/Collector.h"

#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <seccomp.h>
#include <sys/socket.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct MeasurementEngineTest : testing::Test {
    std::unique_ptr<MeasurementEngine> engine(const std::optional<QUrl>& url = {}) {
        UploadParts parts{.transport = std::make_shared<NetworkServiceTransport>(),
                          .shortestRetryWait = 50ms};
        if (url)
            parts.endpoint = ServiceConfiguration::Endpoint{*url, {{"X-Key", "secret"}}};
        return std::make_unique<MeasurementEngine>(m_folder.path(), parts);
    }

    QTemporaryDir m_folder;
    Collector m_collector;
};

/// The records of a request for one resource.
QJsonValue records(const QJsonObject& request) {
    return request[u"body"_s][u"resourceLogs"_s][0][u"scopeLogs"_s][0][u"logRecords"_s];
}

void log(Analytics& engine, const QString& name) {
    engine.logEventWithName(name, std::nullopt);
}

/// From now on the process dies of a socket of the internet.
void forbidInternet() {
    const scmp_filter_ctx filter = seccomp_init(SCMP_ACT_ALLOW);
    for (const scmp_datum_t family : {AF_INET, AF_INET6})
        seccomp_rule_add(filter, SCMP_ACT_KILL_PROCESS, SCMP_SYS(socket), 1, SCMP_A0(SCMP_CMP_EQ, family));
    if (seccomp_load(filter) != 0)
        std::abort();
    seccomp_release(filter);
}

} // namespace

TEST_F(MeasurementEngineTest, AnEvaluationArrivesThroughAnOverloadedCollector) {
    const auto measured = engine(m_collector.url(u"429:1,503,200"_s));
    Services::configure({nullptr, nullptr, {std::shared_ptr<void>(), measured.get()}});
    ReelsmithAnalytics::logEvaluatedApp(4);
    const QJsonObject request = m_collector.nextRequest();
    Services::configure({});
    EXPECT_EQ(request[u"headers"_s][u"x-key"_s], u"secret"_s);
    EXPECT_EQ(request[u"headers"_s][u"content-type"_s], u"application/json"_s);
    EXPECT_EQ(request[u"headers"_s][u"content-encoding"_s], u"gzip"_s);
    EXPECT_EQ(records(request)[0][u"eventName"_s], u"evaluated_app"_s);
    EXPECT_EQ(records(request)[0][u"attributes"_s][1][u"value"_s][u"intValue"_s], u"4"_s);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(m_collector.nextRequest()[u"body"_s], request[u"body"_s]);
}

TEST_F(MeasurementEngineTest, AnEndDoesNotWaitForTheCollectorAndLosesNothing) {
    {
        const auto measured = engine(m_collector.url(u"never"_s));
        log(*measured, u"under_way"_s);
        EXPECT_EQ(records(m_collector.nextRequest())[0][u"eventName"_s], u"under_way"_s);
        measured->setCollectionEnabled(false);
        log(*measured, u"never_collected"_s);
        measured->setCollectionEnabled(true);
        log(*measured, u"last"_s);
    }
    const auto measured = engine(m_collector.url(u"200"_s));
    const QJsonValue next = records(m_collector.nextRequest());
    EXPECT_EQ(next[0][u"eventName"_s], u"last"_s);
    EXPECT_TRUE(next[1].isUndefined());
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
            continue;
        measured.reset();
        std::exit(0);
    };
    EXPECT_EXIT(measure(std::nullopt), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(measure(m_collector.url(u"200"_s)), testing::KilledBySignal(SIGSYS), "");
}
