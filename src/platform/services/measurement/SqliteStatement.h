// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>
#include <sqlite3.h>

namespace reelsmith {

class SqliteConnection;

/// One statement under way. A failure is its connection's (`SqliteConnection::failure`): after one, the
/// statements of the connection do nothing and yield no rows. On the connection's thread; must not outlive
/// it.
class SqliteStatement {
public:
    SqliteStatement(SqliteConnection& connection, const char* sql);

    /// Gives the parameter at `index`, from 1, its value.
    void bind(int index, qint64 value);
    void bind(int index, const QString& value);

    /// Goes to the next row; false at the end.
    bool next();

    /// The value of a column of the row, from 0.
    qint64 integer(int column) const;
    QString text(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    SqliteConnection& m_connection;
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement; // null where the connection has failed
};

} // namespace reelsmith
