// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace reelsmith {

/// The log of what the program did, kept from run to run in the user's state folder: the lines of the console
/// and Qt's messages go there for as long as this lives. Several processes may write at once. Any thread.
///
/// A file that has grown past its limit is kept as "reelsmith.log.1" when the next run begins, the one before
/// that goes.
class LogFile {
public:
    enum class Copy { None, StandardError };

    explicit LogFile(Copy copy);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// Writes one line. Where there is nowhere to write to, nothing happens.
    void write(const QString& line);

private:
    void open();

    const Copy m_copy;
    int m_descriptor = -1;
};

} // namespace reelsmith
