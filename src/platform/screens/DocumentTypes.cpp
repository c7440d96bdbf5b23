// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/DocumentTypes.h"

#include <QMimeDatabase>
#include <algorithm>

namespace reelsmith {

namespace {

const QString anyOf = QStringLiteral("/*");

QString mimeTypeOf(const QString& name) {
    if (name == kUTTypeMovie)
        return QStringLiteral("video/*");
    if (name == QLatin1String("org.matroska.mkv"))
        return QStringLiteral("video/x-matroska");
    return {};
}

} // namespace

DocumentTypes::DocumentTypes(const QStringList& names) {
    for (const QString& name : names) {
        if (const QString type = mimeTypeOf(name); !type.isEmpty())
            m_mimeTypes.append(type);
    }
}

bool DocumentTypes::contain(const QString& fileName) const {
    const QList<QMimeType> types = QMimeDatabase().mimeTypesForFileName(fileName);
    return std::ranges::any_of(types, [this](const QMimeType& type) {
        return std::ranges::any_of(m_mimeTypes, [&type](const QString& wanted) {
            return wanted.endsWith(anyOf) ? type.name().startsWith(wanted.chopped(1)) : type.inherits(wanted);
        });
    });
}

} // namespace reelsmith
