// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace reelsmith {

/// A small file that a service keeps from one start to the next. Only the user may read it. Any thread.
class StateFile {
public:
    explicit StateFile(QString path) : m_path(std::move(path)) {}

    /// The folder for what the services keep: "reelsmith" in the user's data folder.
    static QString folder();

    /// All that it holds; none where there is no file or it cannot be read.
    std::optional<QByteArray> read() const;

    /// Holds `content` from now on; at every moment there is the whole old file or the whole new one. Where
    /// that fails the old one stays, and the log tells why.
    bool replace(const QByteArray& content) const;

private:
    const QString m_path;
};

} // namespace reelsmith
