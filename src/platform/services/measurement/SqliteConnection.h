// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/measurement/SqliteStatement.h"

#include <QString>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <tl/expected.hpp>

namespace reelsmith {

/// Why SQLite could not do what it was asked.
struct SqliteError {
    int code = SQLITE_ERROR; ///< its primary result code
    QString text;
};

/// An open database. Its first failure stands until the next transaction begins, so that what is done to it
/// can be written down in a row and asked for its success once. One thread at a time.
class SqliteConnection {
public:
    /// Opens the file, made if there is none. Waits up to `patience` for other processes at each transaction,
    /// and not for the disk when it is closed.
    static tl::expected<std::unique_ptr<SqliteConnection>, SqliteError>
    open(const QString& path, std::chrono::milliseconds patience);

    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    /// Does all of what `body` does, or nothing of it. Nobody else writes meanwhile.
    tl::expected<void, SqliteError> transaction(const std::function<void()>& body);

    /// A statement with its parameters' values, whose rows are to be read.
    template<typename... Values>
    SqliteStatement query(const char* sql, const Values&... values) {
        SqliteStatement statement(*this, sql);
        int index = 0;
        (statement.bind(++index, values), ...);
        return statement;
    }

    /// Runs a statement to its end.
    template<typename... Values>
    void run(const char* sql, const Values&... values) {
        SqliteStatement statement = query(sql, values...);
        while (statement.next())
            continue;
    }

    /// How many rows the last statement that ran has changed.
    qint64 changedRows() const { return sqlite3_changes64(m_handle.get()); }

    const std::optional<SqliteError>& failure() const { return m_failure; }

private:
    friend SqliteStatement;

    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };

    explicit SqliteConnection(sqlite3* handle) : m_handle(handle) {}

    sqlite3* handle() const { return m_handle.get(); }
    void check(int result);

    std::unique_ptr<sqlite3, Close> m_handle;
    std::optional<SqliteError> m_failure;
};

} // namespace reelsmith
