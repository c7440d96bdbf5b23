// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/SqliteConnection.h"

#include <QFile>

namespace reelsmith {

tl::expected<std::unique_ptr<SqliteConnection>, SqliteError>
SqliteConnection::open(const QString& path, std::chrono::milliseconds patience) {
    sqlite3* handle = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &handle, flags, nullptr);
    std::unique_ptr<SqliteConnection> connection(new SqliteConnection(handle));
    connection->check(result);
    if (connection->m_failure)
        return tl::unexpected(*connection->m_failure);
    sqlite3_busy_timeout(handle, static_cast<int>(patience.count()));
    sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    return connection;
}

tl::expected<void, SqliteError> SqliteConnection::transaction(const std::function<void()>& body) {
    m_failure.reset();
    run("BEGIN IMMEDIATE");
    if (!m_failure)
        body();
    run("COMMIT");
    if (!m_failure)
        return {};
    if (sqlite3_get_autocommit(m_handle.get()) == 0)
        sqlite3_exec(m_handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    return tl::unexpected(*m_failure);
}

void SqliteConnection::check(int result) {
    if (result == SQLITE_OK || m_failure)
        return;
    const QString text = m_handle ? QString::fromUtf8(sqlite3_errmsg(m_handle.get()))
                                  : QString::fromUtf8(sqlite3_errstr(result));
    m_failure = SqliteError{result & 0xff, text};
}

} // namespace reelsmith
