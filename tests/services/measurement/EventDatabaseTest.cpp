// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/EventDatabase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

struct EventDatabaseTest : testing::Test {
    EventDatabase open() { return {m_folder.path(), m_tally}; }

    void overwrite(const QString& companion, const QByteArray& bytes) {
        QFile file(m_path + companion);
        file.open(QIODevice::ReadWrite);
        file.write(bytes);
    }

    qint64 lossCount(const QString& word) {
        auto connection = SqliteConnection::open(m_path, std::chrono::seconds(1));
        SqliteStatement row = (*connection)->query("SELECT count FROM losses WHERE word = ?", word);
        return row.next() ? row.integer(0) : 0;
    }

    bool isAnywhere(const QByteArray& text) {
        const QFileInfoList files = QDir(m_folder.path()).entryInfoList(QDir::Files);
        return std::ranges::any_of(files, [&text](const QFileInfo& info) {
            QFile file(info.filePath());
            return file.open(QIODevice::ReadOnly) && file.readAll().contains(text);
        });
    }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(u"events.sqlite"_s);
    LossTally m_tally;
};

MeasuredEvent event(const QString& name) {
    return MeasuredEvent::now(name, {});
}

QStringList names(EventDatabase&& database) {
    QStringList names;
    for (const StoredEvent& stored : database.oldest(20000))
        names.append(stored.event.name);
    return names;
}

} // namespace

TEST_F(EventDatabaseTest, EventsKeepTheirOrderAndThePropertiesOfTheirTime) {
    const MeasuredEvent first = MeasuredEvent::now(
        u"first"_s, {{u"text"_s, u"ä\"\0b"_s}, {u"n"_s, std::numeric_limits<qint64>::min()}});
    open().store({UserProperty{u"p"_s, u"1"_s}, first});
    open().store({UserProperty{u"p"_s, u"2"_s}, event(u"second"_s)});
    const QList<StoredEvent> events = open().oldest(10);
    ASSERT_EQ(events.size(), 2);
    EXPECT_EQ(events[0].event.id, first.id);
    EXPECT_EQ(events[0].event.parameters, first.parameters);
    EXPECT_EQ(events[0].properties, (AnalyticsParameters{{u"p"_s, u"1"_s}}));
    EXPECT_EQ(events[1].properties, (AnalyticsParameters{{u"p"_s, u"2"_s}}));
}

TEST_F(EventDatabaseTest, TheOldestGoFirst) {
    QList<EventDatabase::Record> records{event(u"old"_s)};
    std::get<MeasuredEvent>(records[0]).unixNanoseconds -=
        std::chrono::nanoseconds(std::chrono::hours(721)).count();
    for (int i = 0; i < 10003; ++i)
        records.append(event(i < 3 ? u"early"_s : u"late"_s));
    ASSERT_TRUE(open().store(records));
    EXPECT_EQ(names(open()), QStringList(10000, u"late"_s));
    EXPECT_EQ(lossCount(u"overflow"_s), 3);
    EXPECT_EQ(lossCount(u"age"_s), 1);
}

TEST_F(EventDatabaseTest, NoMoreThan500DifferentNamesEverComeIn) {
    QList<EventDatabase::Record> records;
    for (int i = 0; i < 500; ++i)
        records.append(event(u"name%1"_s.arg(i)));
    open().store(records);
    open().remove(open().oldest(500), {});
    open().store({event(u"name500"_s), event(u"name7"_s)});
    EXPECT_EQ(names(open()), QStringList{u"name7"_s});
    EXPECT_EQ(lossCount(u"distinct_event_names"_s), 1);
}

TEST_F(EventDatabaseTest, ADamagedDatabaseIsSetAsideAndBegunAnew) {
    const auto change = [this](const char* sql) {
        (*SqliteConnection::open(m_path, std::chrono::seconds(1)))->run(sql);
    };
    const std::pair<const char*, std::function<void()>> damages[] = {
        {"no database", [this] { overwrite({}, QByteArray(4096, 'x')); }},
        {"cut", [this] { QFile::resize(m_path, 5000); }},
        {"another program's", [&] { change("ALTER TABLE events DROP COLUMN properties"); }},
        {"a later version's", [&] { change("PRAGMA user_version = 2"); }},
    };
    for (const auto& [what, damage] : damages) {
        SCOPED_TRACE(what);
        open().store({event(u"before"_s)});
        change("PRAGMA wal_checkpoint(TRUNCATE)");
        damage();
        EXPECT_TRUE(open().store({event(u"after"_s)}));
        EXPECT_EQ(names(open()), QStringList{u"after"_s});
        EXPECT_TRUE(QFile::remove(m_path + u".damaged"_s));
    }
}

TEST_F(EventDatabaseTest, WhatHappensToItUnderItsHandsCostsNothingThatComesLater) {
    const std::pair<const char*, std::function<void()>> accidents[] = {
        {"removed", [this] { QFile::remove(m_path); }},
        {"damaged", [this] { overwrite(u"-wal"_s, QByteArray(200000, '\xee')); }},
    };
    for (const auto& [what, accident] : accidents) {
        SCOPED_TRACE(what);
        EventDatabase one = open(), other = open();
        one.store({event(u"before"_s)});
        other.store({event(u"before"_s)});
        accident();
        EXPECT_TRUE(one.store({event(u"one"_s)}));
        EXPECT_TRUE(other.store({event(u"other"_s)}));
        EXPECT_EQ(names(open()), (QStringList{u"one"_s, u"other"_s}));
    }
}

TEST_F(EventDatabaseTest, SwitchedOffNothingIsKeptAndNothingComesIn) {
    EventDatabase database = open();
    database.store({UserProperty{u"p"_s, u"hidden"_s}, event(u"secret"_s)});
    ASSERT_TRUE(isAnywhere("hidden"));
    database.setCollecting(false);
    EXPECT_FALSE(isAnywhere("hidden") || isAnywhere("secret"));
    overwrite({}, QByteArray(4096, 'x')); // which must not switch it on
    open().store({event(u"secret"_s)});
    EXPECT_EQ(names(open()), QStringList());
    open().setCollecting(true);
    open().store({event(u"secret"_s)});
    EXPECT_EQ(open().oldest(1).value(0).properties, AnalyticsParameters());
    EXPECT_EQ(names(open()), QStringList{u"secret"_s});
}
