// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/measurement/SqliteConnection.h"

#include <QString>
#include <sys/types.h>

namespace reelsmith {

/// The file of the events, and the connection to it. Several processes may have it open at once. One that is
/// damaged, or holds something else, is set aside under the name "PATH.damaged" (where an earlier one goes)
/// and begun anew. One thread.
class EventDatabaseFile {
public:
    explicit EventDatabaseFile(QString path) : m_path(std::move(path)) {}

    /// The connection to the file that stands under the path now, with all tables. Opens it where need be.
    tl::expected<SqliteConnection*, SqliteError> connection();

    /// Lets go of the file; the next call opens it, and looks whether it is whole.
    void close() { m_connection.reset(); }

    /// Removes what was set aside.
    void removeDamaged();

private:
    struct Identity {
        dev_t device = 0;
        ino_t number = 0;

        bool operator==(const Identity&) const = default;
    };

    tl::expected<void, SqliteError> open();
    void setAside();
    Identity identity() const;

    const QString m_path;
    std::unique_ptr<SqliteConnection> m_connection;
    Identity m_identity; // of the file that is open
};

} // namespace reelsmith
