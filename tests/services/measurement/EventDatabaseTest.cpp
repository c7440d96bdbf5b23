// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/EventDatabase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

class EventDatabaseTest : public testing::Test {
protected:
    QStringList names(EventDatabase& database) {
        QStringList names;
        for (const StoredEvent& stored : database.oldest(20000))
            names.append(stored.event.name);
        return names;
    }

    qint64 lossCount(const QString& word) {
        auto connection = SqliteConnection::open(path(), std::chrono::seconds(1));
        SqliteStatement row = (*connection)->query("SELECT count FROM losses WHERE word = ?", word);
        return row.next() ? row.integer(0) : -1;
    }

    void change(const char* statement) {
        (*SqliteConnection::open(path(), std::chrono::seconds(1)))->run(statement);
    }

    bool isAnywhere(const QByteArray& text) {
        for (const QString& name : QDir(m_folder.path()).entryList(QDir::Files)) {
            QFile file(m_folder.filePath(name));
            if (file.open(QIODevice::ReadOnly) && file.readAll().contains(text))
                return true;
        }
        return false;
    }

    QString path() const { return m_folder.filePath(u"events.sqlite"_s); }

    QTemporaryDir m_folder;
    LossTally m_tally;
};

void overwrite(const QString& path, qint64 position, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek(position);
    file.write(bytes);
}

} // namespace

TEST_F(EventDatabaseTest, EventsKeepTheirOrderAndThePropertiesOfTheirTime) {
    const MeasuredEvent first = MeasuredEvent::now(
        u"first"_s, {{u"text"_s, u"ä\"\0b"_s}, {u"n"_s, std::numeric_limits<qint64>::min()}});
    EventDatabase(m_folder.path(), m_tally).store({UserProperty{u"p"_s, u"1"_s}, first});
    EventDatabase database(m_folder.path(), m_tally);
    database.store({UserProperty{u"p"_s, u"2"_s}, MeasuredEvent::now(u"second"_s, {})});

    const QList<StoredEvent> events = database.oldest(10);
    ASSERT_EQ(events.size(), 2);
    EXPECT_EQ(events[0].event.id, first.id);
    EXPECT_EQ(events[0].event.unixNanoseconds, first.unixNanoseconds);
    EXPECT_EQ(events[0].event.parameters, first.parameters);
    EXPECT_EQ(events[0].properties, (AnalyticsParameters{{u"p"_s, u"1"_s}}));
    EXPECT_EQ(events[1].properties, (AnalyticsParameters{{u"p"_s, u"2"_s}}));
    EXPECT_LT(events[0].sequence, events[1].sequence);
}

TEST_F(EventDatabaseTest, TheOldestGoFirst) {
    EventDatabase database(m_folder.path(), m_tally);
    MeasuredEvent old = MeasuredEvent::now(u"old"_s, {});
    old.unixNanoseconds -=
        std::chrono::nanoseconds(EventDatabase::longestAge + std::chrono::seconds(1)).count();
    QList<EventDatabase::Record> records{old};
    for (int i = 0; i < EventDatabase::mostEvents + 3; ++i)
        records.append(MeasuredEvent::now(i < 3 ? u"early"_s : u"late"_s, {}));
    ASSERT_TRUE(database.store(records));
    EXPECT_EQ(names(database).count(u"late"_s), EventDatabase::mostEvents);
    EXPECT_EQ(names(database).size(), EventDatabase::mostEvents);
    EXPECT_EQ(lossCount(u"overflow"_s), 3);
    EXPECT_EQ(lossCount(u"age"_s), 1);
}

TEST_F(EventDatabaseTest, NoMoreThan500DifferentNamesEverComeIn) {
    QList<EventDatabase::Record> records;
    for (int i = 0; i < 500; ++i)
        records.append(MeasuredEvent::now(u"name%1"_s.arg(i), {}));
    EventDatabase(m_folder.path(), m_tally).store(records);
    EventDatabase database(m_folder.path(), m_tally);
    database.remove(database.oldest(500), {});
    database.store({MeasuredEvent::now(u"name500"_s, {}), MeasuredEvent::now(u"name7"_s, {})});
    EXPECT_EQ(names(database), QStringList{u"name7"_s});
    EXPECT_EQ(lossCount(u"distinct_event_names"_s), 1);
}

TEST_F(EventDatabaseTest, TheScheduleOutlivesTheProcess) {
    const UploadSchedule schedule{std::chrono::milliseconds(5), std::chrono::milliseconds(7), 2};
    EventDatabase(m_folder.path(), m_tally).setSchedule(schedule);
    EXPECT_EQ(EventDatabase(m_folder.path(), m_tally).schedule(), schedule);
}

TEST_F(EventDatabaseTest, ADamagedDatabaseIsSetAsideAndBegunAnew) {
    const std::vector<std::pair<const char*, std::function<void()>>> damages{
        {"no database", [this] { overwrite(path(), 0, QByteArray(4096, 'x')); }},
        {"cut", [this] { QFile::resize(path(), 5000); }},
        {"a page overwritten", [this] { overwrite(path(), 4096, QByteArray(8192, '\xee')); }},
        {"another program's", [this] { change("ALTER TABLE events DROP COLUMN properties"); }},
        {"a later version's", [this] { change("PRAGMA user_version = 2"); }},
    };
    for (const auto& [what, damage] : damages) {
        SCOPED_TRACE(what);
        EventDatabase(m_folder.path(), m_tally).store({MeasuredEvent::now(u"before"_s, {})});
        damage();
        EventDatabase database(m_folder.path(), m_tally);
        EXPECT_TRUE(database.store({MeasuredEvent::now(u"after"_s, {})}));
        EXPECT_EQ(names(database), QStringList{u"after"_s});
        EXPECT_TRUE(QFile::remove(path() + u".damaged"_s));
    }
}

TEST_F(EventDatabaseTest, WhatHappensToItUnderItsHandsCostsNothingThatComesLater) {
    const std::vector<std::pair<const char*, std::function<void()>>> accidents{
        {"removed", [this] { QFile::remove(path()); }},
        {"damaged", [this] { overwrite(path() + u"-wal"_s, 32, QByteArray(200000, '\xee')); }},
    };
    for (const auto& [what, accident] : accidents) {
        SCOPED_TRACE(what);
        EventDatabase one(m_folder.path(), m_tally), other(m_folder.path(), m_tally);
        one.store({MeasuredEvent::now(u"before"_s, {})});
        other.store({MeasuredEvent::now(u"before"_s, {})});
        accident();
        EXPECT_TRUE(one.store({MeasuredEvent::now(u"one"_s, {})}));
        EXPECT_TRUE(other.store({MeasuredEvent::now(u"other"_s, {})}));
        EXPECT_EQ(names(one), (QStringList{u"one"_s, u"other"_s}));
    }
}

TEST_F(EventDatabaseTest, SwitchedOffNothingIsKeptAndNothingComesIn) {
    const MeasuredEvent secret = MeasuredEvent::now(u"secret"_s, {{u"a"_s, u"hidden"_s}});
    {
        EventDatabase database(m_folder.path(), m_tally);
        database.store({UserProperty{u"p"_s, u"hidden"_s}, secret});
        ASSERT_TRUE(isAnywhere("hidden"));
        database.setCollecting(false);
        EXPECT_FALSE(isAnywhere("hidden"));
        EXPECT_FALSE(isAnywhere("secret"));
    }
    overwrite(path(), 0, QByteArray(4096, 'x')); // which must not switch it on
    EventDatabase database(m_folder.path(), m_tally);
    database.store({secret});
    EXPECT_TRUE(database.oldest(1).isEmpty());
    database.setCollecting(true);
    database.store({secret});
    EXPECT_EQ(database.oldest(1).value(0).properties, AnalyticsParameters());
    EXPECT_EQ(names(database), QStringList{u"secret"_s});
}
