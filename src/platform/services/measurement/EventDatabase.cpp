// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/EventDatabase.h"

#include <QtGlobal>

namespace reelsmith {

namespace {

qint64 oldestTime() {
    using namespace std::chrono;
    const nanoseconds time = system_clock::now().time_since_epoch() - EventDatabase::longestAge;
    return time.count();
}

/// Stores records within a transaction; adds to `tally` what that costs.
class Storing {
public:
    Storing(SqliteConnection& database, LossTally& tally) : m_database(database), m_tally(tally) {
        readProperties();
    }

    void operator()(const UserProperty& property) {
        // A property is set at every start: one that stays as it is costs no write.
        m_database.run("INSERT INTO properties VALUES (?, ?) ON CONFLICT (name) DO UPDATE "
                       "SET value = excluded.value WHERE value != excluded.value",
                       property.name, property.value);
        readProperties();
    }

    void operator()(const MeasuredEvent& event) {
        if (!isKnown(event.name)) {
            m_tally.add(Loss::DistinctEventNames, event.name);
            return;
        }
        m_database.run("INSERT INTO events (id, time, name, parameters, properties) VALUES (?, ?, ?, ?, ?)",
                       event.id, event.unixNanoseconds, event.name, textOfParameters(event.parameters),
                       m_properties);
    }

    void prune() {
        m_database.run("DELETE FROM events WHERE time < ?", oldestTime());
        m_tally.add(Loss::Age, {}, m_database.changedRows());
        m_database.run("DELETE FROM events WHERE sequence <= "
                       "(SELECT sequence FROM events ORDER BY sequence DESC LIMIT 1 OFFSET ?)",
                       EventDatabase::mostEvents);
        m_tally.add(Loss::Overflow, {}, m_database.changedRows());
    }

private:
    void readProperties() {
        AnalyticsParameters properties;
        SqliteStatement rows = m_database.query("SELECT name, value FROM properties");
        while (rows.next())
            properties.insert(rows.text(0), rows.text(1));
        m_properties = textOfParameters(properties);
    }

    bool isKnown(const QString& name) {
        if (m_database.query("SELECT 1 FROM names WHERE name = ?", name).next())
            return true;
        m_database.run("INSERT INTO names SELECT ? WHERE (SELECT count(*) FROM names) < ?", name,
                       EventDatabase::mostDistinctNames);
        return m_database.changedRows() == 1;
    }

    SqliteConnection& m_database;
    LossTally& m_tally;
    QString m_properties;
};

void writeLosses(SqliteConnection& database, const QMap<Loss, qint64>& losses) {
    for (auto loss = losses.begin(); loss != losses.end(); ++loss) {
        database.run("INSERT INTO losses VALUES (?, ?) "
                     "ON CONFLICT (word) DO UPDATE SET count = count + excluded.count",
                     LossTally::word(loss.key()), loss.value());
    }
}

void removeAll(SqliteConnection& database) {
    for (const char* table : {"DELETE FROM events", "DELETE FROM names", "DELETE FROM properties"})
        database.run(table);
}

void writeSchedule(SqliteConnection& database, const UploadSchedule& schedule) {
    database.run("INSERT OR REPLACE INTO schedule VALUES (1, ?, ?, ?)", qint64{schedule.since.count()},
                 qint64{schedule.wait.count()}, qint64{schedule.failures});
}

StoredEvent storedEvent(const SqliteStatement& row) {
    return {row.integer(0),
            {row.text(1), row.integer(2), row.text(3), parametersOfText(row.text(4))},
            parametersOfText(row.text(5))};
}

} // namespace

EventDatabase::EventDatabase(const QString& folder, LossTally& tally)
    : m_file(folder + QStringLiteral("/events.sqlite")), m_collection(folder), m_tally(tally) {}

bool EventDatabase::store(const QList<Record>& records) {
    return performCounting([&](SqliteConnection& database, LossTally& tally) {
        // Only here nobody can switch it off unseen. What is still there then was left by a process that
        // died.
        if (!m_collection.isOn())
            return removeAll(database);
        Storing storing(database, tally);
        for (const Record& record : records)
            std::visit(storing, record);
        storing.prune();
    });
}

QList<StoredEvent> EventDatabase::oldest(int count) {
    QList<StoredEvent> events;
    perform([&](SqliteConnection& database) {
        events.clear();
        if (!m_collection.isOn())
            return;
        SqliteStatement rows = database.query("SELECT sequence, id, time, name, parameters, properties "
                                              "FROM events WHERE time >= ? ORDER BY sequence LIMIT ?",
                                              oldestTime(), qint64{count});
        while (rows.next())
            events.append(storedEvent(rows));
    });
    return events;
}

bool EventDatabase::remove(const QList<StoredEvent>& events, const UploadSchedule& schedule) {
    return performCounting([&](SqliteConnection& database, LossTally&) {
        // By both: in a database begun anew the numbers begin anew too.
        for (const StoredEvent& stored : events)
            database.run("DELETE FROM events WHERE sequence = ? AND id = ?", stored.sequence,
                         stored.event.id);
        writeSchedule(database, schedule);
    });
}

UploadSchedule EventDatabase::schedule() {
    UploadSchedule schedule;
    perform([&](SqliteConnection& database) {
        SqliteStatement row = database.query("SELECT since, wait, failures FROM schedule");
        if (row.next()) {
            schedule = {UploadSchedule::Milliseconds(row.integer(0)),
                        UploadSchedule::Milliseconds(row.integer(1)), static_cast<int>(row.integer(2))};
        }
    });
    return schedule;
}

bool EventDatabase::setSchedule(const UploadSchedule& schedule) {
    return perform([&](SqliteConnection& database) { writeSchedule(database, schedule); });
}

void EventDatabase::setCollecting(bool isOn) {
    m_collection.setOn(isOn);
    if (isOn)
        return;
    m_file.removeDamaged();
    perform(removeAll);
    // What was removed must not stay readable in the log of the database either.
    if (auto connection = m_file.connection())
        (*connection)->run("PRAGMA wal_checkpoint(TRUNCATE)");
}

// Where it fails for a database that has been damaged under our hands, the second attempt finds a new one.
bool EventDatabase::perform(const std::function<void(SqliteConnection&)>& body) {
    auto done = attempt(body);
    if (!done && done.error().code != SQLITE_BUSY && done.error().code != SQLITE_FULL) {
        m_file.close();
        done = attempt(body);
    }
    nameFailure(done ? QString() : done.error().text);
    return done.has_value();
}

// The counts are kept with what they are about, or not at all.
bool EventDatabase::performCounting(const std::function<void(SqliteConnection&, LossTally&)>& body) {
    LossTally tally = m_tally;
    const bool isDone = perform([&](SqliteConnection& database) {
        tally = m_tally;
        body(database, tally);
        writeLosses(database, tally.counts());
    });
    if (isDone) {
        m_tally = tally;
        m_tally.clear();
    }
    return isDone;
}

void EventDatabase::nameFailure(const QString& text) {
    if (!text.isEmpty() && text != m_failure)
        qWarning("Measurement: the database cannot be used: %s", qUtf8Printable(text));
    m_failure = text;
}

tl::expected<void, SqliteError> EventDatabase::attempt(const std::function<void(SqliteConnection&)>& body) {
    auto connection = m_file.connection();
    if (!connection)
        return tl::unexpected(connection.error());
    SqliteConnection& database = **connection;
    return database.transaction([&] { body(database); });
}

} // namespace reelsmith
