// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <vector>

namespace reelsmith {

/// The services' settings as they are written down: the environment over the user's file over the system's.
class ServiceSettings {
public:
    static ServiceSettings read();

    /// What the first place that names `key` says; empty where none does. Any thread.
    QString text(const QString& key) const;

private:
    using File = QHash<QString, QString>;

    static File readFile(const QString& path);

    std::vector<File> m_files; // the one that decides first
};

} // namespace reelsmith
