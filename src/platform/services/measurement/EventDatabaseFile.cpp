// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/EventDatabaseFile.h"

#include "platform/foundation/FileLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>
#include <algorithm>
#include <sys/stat.h>

namespace reelsmith {

namespace {

constexpr std::chrono::seconds patienceWithOthers{2};
constexpr qint64 schemaVersion = 1;
constexpr mode_t privateFolderMode = 0700;

// Beside the database itself its log and the index of that.
constexpr const char* companions[] = {"", "-wal", "-shm"};

constexpr const char* schema[] = {
    "CREATE TABLE IF NOT EXISTS events (sequence INTEGER PRIMARY KEY AUTOINCREMENT, id TEXT NOT NULL,"
    " time INTEGER NOT NULL, name TEXT NOT NULL, parameters TEXT NOT NULL, properties TEXT NOT NULL)",
    "CREATE TABLE IF NOT EXISTS names (name TEXT PRIMARY KEY) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS properties (name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS losses (word TEXT PRIMARY KEY, count INTEGER NOT NULL) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS schedule (one INTEGER PRIMARY KEY CHECK (one = 1), since INTEGER NOT NULL,"
    " wait INTEGER NOT NULL, failures INTEGER NOT NULL)",
};

// Statements that fail where a table of that name has other columns.
constexpr const char* expectations[] = {
    "SELECT sequence, id, time, name, parameters, properties FROM events LIMIT 0",
    "SELECT name FROM names LIMIT 0",
    "SELECT name, value FROM properties LIMIT 0",
    "SELECT word, count FROM losses LIMIT 0",
    "SELECT one, since, wait, failures FROM schedule LIMIT 0",
};

bool isDamage(const SqliteError& error) {
    return error.code == SQLITE_CORRUPT || error.code == SQLITE_NOTADB || error.code == SQLITE_ERROR;
}

tl::unexpected<SqliteError> damage(const QString& text) {
    return tl::unexpected(SqliteError{SQLITE_CORRUPT, text});
}

qint64 version(SqliteConnection& connection) {
    SqliteStatement row = connection.query("PRAGMA user_version");
    return row.next() ? row.integer(0) : 0;
}

tl::expected<void, SqliteError> makeTables(SqliteConnection& connection) {
    return connection.transaction([&connection] {
        for (const char* statement : schema)
            connection.run(statement);
        for (const char* statement : expectations)
            connection.run(statement);
        // Written once only: each start would wait for the disk.
        if (version(connection) < schemaVersion)
            connection.run("PRAGMA user_version = 1");
    });
}

// What is committed survives a kill. For the disk nobody waits, an end of the program neither: a power
// failure may cost the last events, but damages nothing.
void chooseJournal(SqliteConnection& connection) {
    connection.run("PRAGMA journal_mode = WAL");
    connection.run("PRAGMA synchronous = NORMAL");
    connection.run("PRAGMA secure_delete = ON");
}

tl::expected<std::unique_ptr<SqliteConnection>, SqliteError> openWhole(const QString& path) {
    auto connection = SqliteConnection::open(path, patienceWithOthers);
    if (!connection)
        return connection;
    SqliteConnection& database = **connection;
    chooseJournal(database);
    SqliteStatement check = database.query("PRAGMA quick_check(1)");
    const QString verdict = check.next() ? check.text(0) : QString();
    const bool isOurs = version(database) <= schemaVersion;
    if (database.failure())
        return tl::unexpected(*database.failure());
    if (!isOurs)
        return damage(QStringLiteral("a later version has made it"));
    if (verdict != QLatin1StringView("ok"))
        return damage(verdict);
    return connection;
}

tl::expected<std::unique_ptr<SqliteConnection>, SqliteError> openWithTables(const QString& path) {
    auto connection = openWhole(path);
    if (!connection)
        return connection;
    if (auto made = makeTables(**connection); !made)
        return tl::unexpected(made.error());
    return connection;
}

} // namespace

tl::expected<SqliteConnection*, SqliteError> EventDatabaseFile::connection() {
    if (!m_connection || identity() != m_identity) {
        if (auto opened = open(); !opened)
            return tl::unexpected(opened.error());
    }
    return m_connection.get();
}

void EventDatabaseFile::removeDamaged() {
    for (const char* companion : companions)
        QFile::remove(m_path + QStringLiteral(".damaged") + QLatin1StringView(companion));
}

tl::expected<void, SqliteError> EventDatabaseFile::open() {
    m_connection.reset();
    const QString folder = QFileInfo(m_path).path();
    QDir().mkpath(folder);
    ::chmod(QFile::encodeName(folder).constData(), privateFolderMode);
    // Only one process judges the file and sets it aside: the next one must not do so to the new one.
    const FileLock lock(m_path + QStringLiteral(".lock"));
    auto opened = openWithTables(m_path);
    if (!opened && isDamage(opened.error())) {
        qWarning("Measurement: the database is damaged and is begun anew: %s",
                 qUtf8Printable(opened.error().text));
        setAside();
        opened = openWithTables(m_path);
    }
    if (!opened)
        return tl::unexpected(opened.error());
    m_connection = std::move(*opened);
    m_identity = identity();
    return {};
}

void EventDatabaseFile::setAside() {
    removeDamaged();
    for (const char* companion : companions) {
        const QLatin1StringView name(companion);
        QFile::rename(m_path + name, m_path + QStringLiteral(".damaged") + name);
    }
}

EventDatabaseFile::Identity EventDatabaseFile::identity() const {
    struct stat status {};
    if (::stat(QFile::encodeName(m_path).constData(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
}

} // namespace reelsmith
