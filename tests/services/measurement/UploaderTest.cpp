// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/Uploader.h"

#include "fakes/InMemoryRemoteConfig.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Keeps what is posted, and never answers by itself.
class PatientTransport : public ServiceTransport {
public:
    void post(const ServiceRequest& request, Completion) override { requests.append(request); }

    QList<ServiceRequest> requests;
};

class UploaderTest : public testing::Test {
protected:
    Uploader uploader() {
        return {{.endpoint = m_endpoint, .transport = m_transport, .remoteConfig = m_remoteConfig},
                m_folder.path(),
                m_database,
                m_tally,
                std::make_shared<MeasurementInbox>()};
    }

    void store(int count, const AnalyticsParameters& parameters = {}) {
        QList<EventDatabase::Record> records;
        for (int i = 0; i < count; ++i)
            records.append(MeasuredEvent::now(u"event"_s, parameters));
        m_database.store(records);
    }

    void setFlag(const QString& name, const QString& value) {
        m_remoteConfig->setState({.activated = {{name, value}}});
    }

    qsizetype requestCount() const { return m_transport->requests.size(); }
    qsizetype storedCount() { return m_database.oldest(20000).size(); }

    QTemporaryDir m_folder;
    LossTally m_tally;
    EventDatabase m_database{m_folder.path(), m_tally};
    std::optional<ServiceConfiguration::Endpoint> m_endpoint{{QUrl(u"https://collector.test/v1/logs"_s)}};
    std::shared_ptr<PatientTransport> m_transport = std::make_shared<PatientTransport>();
    std::shared_ptr<InMemoryRemoteConfig> m_remoteConfig = std::make_shared<InMemoryRemoteConfig>();
};

struct AnswerCase {
    ServiceAnswer answer;
    qsizetype storedAfterwards;
    std::chrono::seconds wait;
};

} // namespace

TEST_F(UploaderTest, TheAnswerDecidesWhatStaysAndForHowLong) {
    const AnswerCase cases[] = {
        {{200}, 0, 3600s},
        {{400}, 0, 3600s},
        {{500}, 0, 3600s},
        {{503}, 3, 30s},
        {{429, {{"retry-after", "600"}}}, 3, 600s},
    };
    for (const auto& [answer, storedAfterwards, wait] : cases) {
        SCOPED_TRACE(answer.status);
        m_database.remove(m_database.oldest(10), {});
        store(3);
        Uploader first = uploader();
        first.advance();
        first.take(answer);
        EXPECT_EQ(storedCount(), storedAfterwards);
        store(1);
        const qsizetype before = requestCount();
        const auto asked = uploader().advance(); // as another process would
        EXPECT_EQ(requestCount(), before);
        EXPECT_GT(asked, wait - 30s);
        EXPECT_LE(asked, wait + wait / 2);
    }
}

TEST_F(UploaderTest, WhatTheCollectorDoesNotTakeIsCounted) {
    store(2);
    Uploader first = uploader();
    first.advance();
    first.take(ServiceAnswer{404});
    m_database.setSchedule({});
    store(2);
    Uploader second = uploader();
    second.advance();
    second.take(ServiceAnswer{200, {}, R"({"partialSuccess": {"rejectedLogRecords": "1"}})"});
    auto connection = SqliteConnection::open(m_folder.filePath(u"events.sqlite"_s), 1s);
    SqliteStatement rows = (*connection)->query("SELECT word, count FROM losses ORDER BY word");
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(std::pair(rows.text(0), rows.integer(1)), std::pair(u"refusal"_s, qint64{2}));
    ASSERT_TRUE(rows.next());
    EXPECT_EQ(std::pair(rows.text(0), rows.integer(1)), std::pair(u"rejection"_s, qint64{1}));
}

TEST_F(UploaderTest, FullBundlesFollowOneAnother) {
    setFlag(u"measurement_max_bundle"_s, u"2"_s);
    store(5);
    Uploader whole = uploader();
    EXPECT_FALSE(whole.advance());
    for (const qsizetype left : {3, 1, 0}) {
        whole.take(ServiceAnswer{200});
        EXPECT_EQ(storedCount(), left);
    }
    EXPECT_EQ(requestCount(), 3);
}

TEST_F(UploaderTest, ABundleIsNoMoreThan64KiB) {
    AnalyticsParameters large;
    for (int i = 0; i < 25; ++i)
        large.insert(u"parameter%1"_s.arg(i), u"\U0001F600"_s.repeated(100));
    store(20, large);
    Uploader whole = uploader();
    whole.advance();
    while (storedCount() > 0) {
        const qsizetype before = storedCount();
        const QList<StoredEvent> events = m_database.oldest(100);
        whole.take(ServiceAnswer{200});
        ASSERT_GT(before, storedCount());
        EXPECT_LE(otlpLogs(events.first(before - storedCount()), {}).size(), 64 * 1024);
    }
}

TEST_F(UploaderTest, TheOperatorMaySwitchItOffAndAskForAShare) {
    store(3);
    setFlag(u"measurement_enabled"_s, u"false"_s);
    Uploader patient = uploader();
    EXPECT_EQ(patient.advance(), 3600s);
    EXPECT_EQ(storedCount(), 3);
    setFlag(u"measurement_sampling"_s, u"0"_s);
    patient.advance();
    EXPECT_EQ(storedCount(), 0);
    EXPECT_EQ(requestCount(), 0);
}

TEST_F(UploaderTest, OneUploadsAtATimeAndNobodyRepeatsAtOnceWhatDied) {
    store(1);
    {
        Uploader one = uploader();
        one.advance();
        m_database.setSchedule({});
        EXPECT_GT(uploader().advance(), 0s);
        EXPECT_EQ(requestCount(), 1);
        m_database.setSchedule({});
    }
    { // gone before its answer
        Uploader other = uploader();
        other.advance();
        EXPECT_EQ(requestCount(), 2);
    }
    EXPECT_GT(uploader().advance(), 20s);
    EXPECT_EQ(requestCount(), 2);
}
