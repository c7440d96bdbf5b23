// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/SqliteStatement.h"

#include "platform/services/measurement/SqliteConnection.h"

namespace reelsmith {

SqliteStatement::SqliteStatement(SqliteConnection& connection, const char* sql) : m_connection(connection) {
    if (connection.failure())
        return;
    sqlite3_stmt* statement = nullptr;
    connection.check(sqlite3_prepare_v2(connection.handle(), sql, -1, &statement, nullptr));
    m_statement.reset(statement);
}

void SqliteStatement::bind(int index, qint64 value) {
    if (m_statement)
        m_connection.check(sqlite3_bind_int64(m_statement.get(), index, value));
}

void SqliteStatement::bind(int index, const QString& value) {
    if (!m_statement)
        return;
    const QByteArray text = value.toUtf8();
    m_connection.check(sqlite3_bind_text64(m_statement.get(), index, text.constData(),
                                           static_cast<sqlite3_uint64>(text.size()), SQLITE_TRANSIENT,
                                           SQLITE_UTF8));
}

bool SqliteStatement::next() {
    if (!m_statement || m_connection.failure())
        return false;
    const int result = sqlite3_step(m_statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        m_connection.check(result);
    return result == SQLITE_ROW;
}

qint64 SqliteStatement::integer(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

QString SqliteStatement::text(int column) const {
    const auto* const bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(m_statement.get(), column));
}

} // namespace reelsmith
