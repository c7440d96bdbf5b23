// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/Uploader.h"

#include "fakes/InMemoryRemoteConfig.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Counts what is posted, and never answers by itself.
struct PatientTransport : ServiceTransport {
    void post(const ServiceRequest&, Completion) override { ++posts; }

    int posts = 0;
};

struct UploaderTest : testing::Test {
    /// As a process of its own would have it.
    Uploader uploader() {
        return {{.endpoint = ServiceConfiguration::Endpoint{QUrl(u"https://collector.test/v1/logs"_s)},
                 .transport = m_transport,
                 .remoteConfig = m_remoteConfig},
                m_folder.path(),
                m_database,
                m_tally,
                std::make_shared<MeasurementInbox>()};
    }

    void store(int count, const AnalyticsParameters& parameters = {}) {
        for (int i = 0; i < count; ++i)
            m_database.store({MeasuredEvent::now(u"event"_s, parameters)});
    }

    void setFlag(const QString& name, const QString& value) {
        m_remoteConfig->setState({.activated = {{name, value}}});
    }

    qsizetype storedCount() { return m_database.oldest(1000).size(); }

    QTemporaryDir m_folder;
    LossTally m_tally;
    EventDatabase m_database{m_folder.path(), m_tally};
    std::shared_ptr<PatientTransport> m_transport = std::make_shared<PatientTransport>();
    std::shared_ptr<InMemoryRemoteConfig> m_remoteConfig = std::make_shared<InMemoryRemoteConfig>();
};

struct AnswerCase {
    ServiceResult answer;
    qsizetype storedAfterwards;
    std::chrono::seconds wait; // at least, and up to a half more
    QString loss = {};
};

} // namespace

TEST_F(UploaderTest, TheAnswerDecidesWhatStaysAndForHowLong) {
    QList<AnswerCase> cases{
        // More than were sent cannot have been rejected.
        {ServiceAnswer{200, {}, R"({"partialSuccess": {"rejectedLogRecords": "9223372036854775807"}})"}, 0,
         3599s, u"rejection"_s},
        {ServiceAnswer{200, {}, R"({"partialSuccess": {"rejectedLogRecords": 3}})"}, 0, 3599s,
         u"rejection"_s},
        {ServiceAnswer{429, {{"retry-after", "600"}}}, 3, 599s},
        {tl::unexpected(ServiceError{u"gone"_s}), 3, 29s},
    };
    for (const int status : {200, 204})
        cases.append({ServiceAnswer{status}, 0, 3599s});
    for (const int status : {302, 429, 502, 503, 504})
        cases.append({ServiceAnswer{status}, 3, 29s});
    for (const int status : {400, 401, 403, 404, 408, 413, 500, 501})
        cases.append({ServiceAnswer{status}, 0, 3599s, u"refusal"_s});
    auto connection = SqliteConnection::open(m_folder.filePath(u"events.sqlite"_s), 1s);
    for (const auto& [answer, storedAfterwards, wait, loss] : cases) {
        SCOPED_TRACE(answer ? answer->status : 0);
        m_database.remove(m_database.oldest(10), {});
        (*connection)->run("DELETE FROM losses");
        store(3);
        Uploader first = uploader();
        first.advance();
        first.take(answer);
        EXPECT_EQ(storedCount(), storedAfterwards);
        EXPECT_EQ((*connection)->query("SELECT 1 FROM losses WHERE word = ? AND count = 3", loss).next(),
                  !loss.isEmpty());
        store(1);
        const int before = m_transport->posts;
        const auto asked = uploader().advance();
        EXPECT_EQ(m_transport->posts, before);
        EXPECT_TRUE(asked > wait && asked <= wait * 3 / 2 + 2s) << asked->count();
    }
}

TEST_F(UploaderTest, BundlesFollowOneAnotherNoneOfThemTooLarge) {
    AnalyticsParameters large;
    for (int i = 0; i < 25; ++i)
        large.insert(u"parameter%1"_s.arg(i), u"\U0001F600"_s.repeated(100));
    setFlag(u"measurement_max_bundle"_s, u"10"_s);
    store(15, large);
    store(25);
    Uploader whole = uploader();
    whole.advance();
    for (QList<StoredEvent> events = m_database.oldest(50); !events.isEmpty();) {
        whole.take(ServiceAnswer{200});
        const qsizetype taken = events.size() - storedCount();
        ASSERT_TRUE(taken > 0 && taken <= 10) << taken;
        EXPECT_LE(otlpLogs(events.first(taken), {}).size(), 64 * 1024);
        events.remove(0, taken);
    }
}

TEST_F(UploaderTest, TheOperatorMaySwitchItOffOrAskForAShare) {
    store(3);
    setFlag(u"measurement_enabled"_s, u"false"_s);
    EXPECT_EQ(uploader().advance(), 3600s);
    EXPECT_EQ(storedCount(), 3);
    setFlag(u"measurement_sampling"_s, u"0"_s);
    uploader().advance();
    EXPECT_EQ(storedCount(), 0);
    EXPECT_EQ(m_transport->posts, 0);
}

TEST_F(UploaderTest, OneUploadsAtATimeAndNobodyRepeatsAtOnceWhatDied) {
    store(1);
    {
        Uploader one = uploader();
        one.advance();
        m_database.setSchedule({});
        EXPECT_GT(uploader().advance(), 0s);
        EXPECT_EQ(m_transport->posts, 1);
    }
    uploader().advance(); // and gone before its answer
    EXPECT_EQ(m_transport->posts, 2);
    EXPECT_GT(uploader().advance(), 20s);
    EXPECT_EQ(m_transport->posts, 2);
}
