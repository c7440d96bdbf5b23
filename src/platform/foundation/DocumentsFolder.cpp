// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/DocumentsFolder.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/URLs.h"

#include <QDir>
#include <QStandardPaths>
#include <algorithm>

namespace reelsmith {

QUrl documentsFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString folder = documents + QStringLiteral("/Reelsmith");
    if (documents.isEmpty() || !QDir().mkpath(folder))
        fatalError("There is no documents folder", "platform/foundation/DocumentsFolder", __LINE__);
    return fileUrl(folder.toStdString());
}

bool isInDocumentsFolder(const QUrl& url) {
    const std::filesystem::path folder = filePath(documentsFolder());
    const std::filesystem::path path = filePath(url);
    const auto [folderEnd, pathRest] = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
    return folderEnd == folder.end() && pathRest != path.end();
}

} // namespace reelsmith
