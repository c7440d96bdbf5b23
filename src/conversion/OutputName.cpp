// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/OutputName.h"

#include "library/FileSystem.h"
#include "platform/foundation/URLs.h"

#include <QUuid>

namespace reelsmith {

QString outputBaseName(const std::optional<QString>& name, const QUrl& source) {
    if (name)
        return *name;
    const QStringList pieces = lastPathComponent(source).split(QLatin1Char('.'), Qt::SkipEmptyParts);
    return pieces.isEmpty() ? QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() : pieces.first();
}

QUrl outputUrl(const QString& baseName) {
    return appendingPathComponent(FileSystem::shared().outputsFolder(), baseName + QStringLiteral(".mp4"));
}

} // namespace reelsmith
