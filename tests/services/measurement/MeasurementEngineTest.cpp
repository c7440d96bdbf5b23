// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/MeasurementEngine.h"

#include "platform/linux/network/NetworkServiceTransport.h"
#include "platform/services/Services.h"
#include "remote/ReelsmithAnalytics.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A collector of logs on the loopback (see collector.py), for as long as this lives.
class Collector {
public:
    Collector() {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(COLLECTOR)});
        m_port = line().toInt();
    }
    ~Collector() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

    /// An address where the requests are answered with `answers`.
    QUrl url(const QString& answers) const {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/%2/v1/logs").arg(m_port).arg(answers));
    }

    /// The next request; empty where none comes.
    QJsonObject nextRequest() { return QJsonDocument::fromJson(line()).object(); }

private:
    QByteArray line() {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(20000))
            continue;
        return m_process.readLine();
    }

    QProcess m_process;
    int m_port = 0;
};

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
