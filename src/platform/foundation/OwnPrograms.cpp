// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/OwnPrograms.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace reelsmith {

std::string ownProgram(const QString& name) {
    const QString folder = QCoreApplication::applicationDirPath();
    for (const char* place : {"/", "/../libexec/", "/../libexec/reelsmith/"}) {
        const QString candidate = folder + QLatin1String(place) + name;
        if (QFileInfo(candidate).isExecutable())
            return candidate.toStdString();
    }
    return REELSMITH_LIBEXEC_FOLDER "/" + name.toStdString();
}

} // namespace reelsmith
