// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/StateFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QtGlobal>

namespace reelsmith {

QString StateFile::folder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/reelsmith");
}

std::optional<QByteArray> StateFile::read() const {
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

bool StateFile::replace(const QByteArray& content) const {
    QDir().mkpath(QFileInfo(m_path).path());
    QSaveFile file(m_path);
    const bool isReplaced = file.open(QIODevice::WriteOnly) &&
                            file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
                            file.write(content) == content.size() && file.commit();
    if (!isReplaced)
        qWarning("State file %s: %s", qUtf8Printable(m_path), qUtf8Printable(file.errorString()));
    return isReplaced;
}

} // namespace reelsmith
