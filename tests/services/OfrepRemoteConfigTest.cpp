// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/OfrepRemoteConfig.h"

#include "fakes/RunLoop.h"

#include "platform/linux/network/NetworkServiceTransport.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <atomic>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

using Status = RemoteConfigFetchStatus;

constexpr auto key = "key"_L1;

/// A web server on the loopback that gives its answers one after another, byte for byte, and closes each
/// connection after its answer; without one left it never answers. Needs the main thread's event loop.
class RawServer {
public:
    QList<QByteArray> answers;
    QList<QByteArray> requests; ///< whole, as they have come

    RawServer() {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* const socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, &m_server, [this, socket] { serve(*socket); });
        });
    }

    QUrl url() const {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/evaluate").arg(m_server.serverPort()));
    }

    /// An answer for `answers`.
    static QByteArray answer(const QByteArray& status, const QByteArray& body = {},
                             const QByteArray& headers = {}) {
        return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" +
               headers + "\r\n" + body;
    }

private:
    void serve(QTcpSocket& socket) {
        const QByteArray come = socket.property("come").toByteArray() + socket.readAll();
        socket.setProperty("come", come);
        const auto head = come.indexOf("\r\n\r\n") + 4;
        const auto length = come.toLower().indexOf("content-length: ") + 16;
        if (head < 4 || come.size() < head + come.mid(length, come.indexOf('\r', length) - length).toInt())
            return;
        requests.append(come);
        if (answers.isEmpty())
            return;
        socket.write(answers.takeFirst());
        socket.disconnectFromHost();
    }

    QTcpServer m_server;
};

QByteArray values(const QByteArray& value, const QByteArray& headers = {}) {
    return RawServer::answer("200 OK", "{\"flags\":[{\"key\":\"key\",\"value\":\"" + value + "\"}]}",
                             headers);
}

class OfrepRemoteConfigTest : public testing::Test {
protected:
    void SetUp() override { restart(); }
    void restart(std::chrono::seconds after = 0s) {
        m_now = m_now.addDuration(after);
        m_config = std::make_shared<OfrepRemoteConfig>(m_endpoint, m_transport,
                                                       std::make_shared<LocalInstallations>(m_folder.path()),
                                                       m_folder.path(), [this] { return m_now; });
    }
    Status fetch() {
        std::atomic<Status> told = Status::NoFetchYet;
        m_config->fetchWithExpirationDuration(1h, [&told](Status status, const auto& error) {
            EXPECT_EQ(error.has_value(), status == Status::Failure);
            told = status;
        });
        EXPECT_TRUE(runLoopUntil([&told] { return told != Status::NoFetchYet; }));
        return told;
    }
    Status fetch(const QByteArray& answer) {
        m_server.answers = {answer};
        const auto before = m_server.requests.size();
        const Status status = fetch();
        EXPECT_GT(m_server.requests.size(), before);
        return status;
    }
    Status fetchWithoutAsking() {
        const auto before = m_server.requests.size();
        const Status status = fetch();
        EXPECT_EQ(m_server.requests.size(), before);
        return status;
    }
    bool activate() {
        std::atomic<int> changed = -1;
        m_config->activateWithCompletion([&changed](bool isChanged, const auto&) { changed = isChanged; });
        EXPECT_TRUE(runLoopUntil([&changed] { return changed >= 0; }));
        return changed == 1;
    }
    QString value() const { return m_config->stringValueForKey(key).value_or(u"none"_s); }
    bool write(const QString& file, const QByteArray& text) {
        return StateFile(m_folder.filePath(file)).replace(text);
    }

    const QTemporaryDir m_folder;
    RawServer m_server;
    ServiceConfiguration::Endpoint m_endpoint{m_server.url(), {{"Authorization", "Bearer x"}}};
    std::shared_ptr<NetworkServiceTransport> m_transport = std::make_shared<NetworkServiceTransport>();
    std::shared_ptr<OfrepRemoteConfig> m_config;
    QDateTime m_now = QDateTime::currentDateTimeUtc();
};

} // namespace

TEST_F(OfrepRemoteConfigTest, ValuesAreSeenFromTheirActivationOnAndAfterRestarts) {
    EXPECT_FALSE(activate());
    EXPECT_EQ(fetch(values("on")), Status::Success);
    restart();
    EXPECT_EQ(value(), u"none"_s);
    EXPECT_TRUE(activate());
    EXPECT_FALSE(activate());
    restart();
    EXPECT_EQ(value(), u"on"_s);
    EXPECT_EQ(m_config->keysWithPrefix(u"ke"_s), QSet<QString>{key});
    EXPECT_EQ(m_config->keysWithPrefix(u"x"_s), QSet<QString>());
    const QByteArray request = m_server.requests.first().toLower();
    for (const char* part :
         {"post /evaluate http/1.1\r\n", "\nauthorization: bearer x\r\n",
          "\ncontent-type: application/json\r\n", "\r\n\r\n{\"context\":{\"appversion\":\"",
          "\",\"platform\":\"linux\",\"targetingkey\":\""})
        EXPECT_TRUE(request.contains(part)) << part;
    EXPECT_FALSE(request.contains("if-none-match"));
}

TEST_F(OfrepRemoteConfigTest, AnswersServeForAnHourUnlessTheClockOrTheQuestionChanges) {
    EXPECT_EQ(fetch(values("on")), Status::Success);
    restart(3599s);
    EXPECT_EQ(fetchWithoutAsking(), Status::Success);
    restart(1s);
    EXPECT_EQ(fetch(values("on")), Status::Success);
    restart(-60s);
    EXPECT_EQ(fetch(values("on")), Status::Success);
    m_endpoint.headers = {{"X-API-Key", "of another environment"}};
    restart();
    EXPECT_EQ(fetch(values("on")), Status::Success);
}

TEST_F(OfrepRemoteConfigTest, WhatIsNotModifiedStays) {
    EXPECT_EQ(fetch(RawServer::answer("304 Not Modified")), Status::Failure);
    EXPECT_EQ(fetch(values("on", "ETag: W/\"one\"\r\n")), Status::Success);
    restart(3600s);
    EXPECT_EQ(fetch("HTTP/1.1 304 Not Modified\r\nContent-Length: 59\r\n\r\n"), Status::Success);
    EXPECT_TRUE(m_server.requests.last().toLower().contains("\r\nif-none-match: w/\"one\"\r\n"));
    EXPECT_EQ(fetchWithoutAsking(), Status::Success);
    EXPECT_TRUE(activate());
    EXPECT_EQ(value(), u"on"_s);
}

TEST_F(OfrepRemoteConfigTest, AServiceThatAsksToBeLeftAloneIsLeftAlone) {
    const auto busy = [](const QByteArray& header) {
        return RawServer::answer("429 Too Many Requests", {}, header + ": 7200\r\n");
    };
    for (const char* header : {"Retry-After", "Retry-Later"}) {
        EXPECT_EQ(fetch(busy(header)), Status::Throttled);
        restart(7199s);
        EXPECT_EQ(fetchWithoutAsking(), Status::Throttled);
        restart(1s);
    }
    EXPECT_EQ(fetch(busy("Retry-After")), Status::Throttled);
    restart(-1s);
    EXPECT_EQ(fetch(values("on")), Status::Success);
}

TEST_F(OfrepRemoteConfigTest, FailuresLeaveWhatWasThere) {
    EXPECT_EQ(fetch(values("on")), Status::Success);
    EXPECT_TRUE(activate());
    m_endpoint.timeLimit = 300ms;
    restart(3600s);
    for (const char* status : {"204 No Content", "302 Found", "400 Bad Request", "401 Unauthorized",
                               "403 Forbidden", "404 Not Found", "500 Oops", "503 Busy"})
        EXPECT_EQ(fetch(RawServer::answer(status, "{\"errorCode\":\"X\"}", "Location: /\r\n")),
                  Status::Failure);
    const QByteArray tooLong = values(QByteArray(1024 * 1024, 'x')), cut = values("off").chopped(1);
    for (const QByteArray& answer : {QByteArray(), QByteArray("nonsense"), tooLong, cut})
        EXPECT_EQ(fetch(answer), Status::Failure) << answer.left(40).data();
    m_server.answers.clear();
    EXPECT_EQ(fetch(), Status::Failure);
    EXPECT_FALSE(activate());
    EXPECT_EQ(value(), u"on"_s);
}

TEST_F(OfrepRemoteConfigTest, ADamagedFileIsAsNone) {
    EXPECT_EQ(fetch(values("on")), Status::Success);
    for (const QByteArray damaged : {"", "{", "[]", "{\"key\":7,\"values\":{\"key\":7}}"}) {
        ASSERT_TRUE(write(u"remote-config-activated.json"_s, damaged));
        restart();
        EXPECT_EQ(value(), u"none"_s);
        EXPECT_TRUE(activate());
        ASSERT_TRUE(write(u"remote-config-fetched.json"_s, damaged));
        restart();
        EXPECT_EQ(value(), u"on"_s);
        EXPECT_EQ(fetch(values("on")), Status::Success);
    }
}

TEST_F(OfrepRemoteConfigTest, AStopEndsExchangesAtOnceAndCallsNobody) {
    m_config->fetchWithExpirationDuration(1h, [](Status, const auto&) { ADD_FAILURE(); });
    ASSERT_TRUE(runLoopUntil([this] { return m_server.requests.size() == 1; }));
    m_transport->stop();
    m_config->fetchWithExpirationDuration(1h, [](Status, const auto&) { ADD_FAILURE(); });
}
