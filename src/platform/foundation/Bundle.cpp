// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/Bundle.h"

#include <QFile>

namespace reelsmith {

std::optional<QUrl> Bundle::urlForResource(const QString& name, const QString& extension) {
    const QString path = QStringLiteral(":/bundle/%1.%2").arg(name, extension);
    if (!QFile::exists(path))
        return std::nullopt;
    return QUrl(QStringLiteral("qrc") + path);
}

} // namespace reelsmith
