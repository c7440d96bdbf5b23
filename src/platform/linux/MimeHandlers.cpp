// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/MimeHandlers.h"

#include <QFile>
#include <QSet>
#include <QStandardPaths>
#include <QStringList>

namespace reelsmith::mimehandlers {

namespace {

struct Associations {
    QStringList added;
    QStringList removed;
};

// A list's lines are "TYPE=ID;ID;" in groups; one group takes away what lists of less weight say.
Associations readList(const QString& path, const QString& mimeType) {
    Associations result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return result;
    bool isRemoval = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(QLatin1Char('[')))
            isRemoval = line == QLatin1String("[Removed Associations]");
        else if (line.section(QLatin1Char('='), 0, 0).trimmed() == mimeType)
            (isRemoval ? result.removed : result.added) +=
                line.section(QLatin1Char('='), 1).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    }
    return result;
}

// From the one with the most weight down.
QStringList lists() {
    QStringList names;
    const QString desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower();
    for (const QString& desktop : desktops.split(QLatin1Char(':'), Qt::SkipEmptyParts))
        names.append(desktop + QStringLiteral("-mimeapps.list"));
    names.append(QStringLiteral("mimeapps.list"));

    QStringList result;
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation)) {
        for (const QString& name : names)
            result.append(folder + QLatin1Char('/') + name);
    }
    names.append(QStringLiteral("mimeinfo.cache"));
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation)) {
        for (const QString& name : names)
            result.append(folder + QLatin1Char('/') + name);
    }
    return result;
}

bool isInstalled(const QString& desktopId) {
    return !QStandardPaths::locate(QStandardPaths::ApplicationsLocation, desktopId).isEmpty();
}

} // namespace

bool isAnyFor(const QString& mimeType) {
    QSet<QString> removed;
    for (const QString& list : lists()) {
        const Associations associations = readList(list, mimeType);
        for (const QString& desktopId : associations.added) {
            if (!removed.contains(desktopId) && isInstalled(desktopId))
                return true;
        }
        removed.unite(QSet<QString>(associations.removed.begin(), associations.removed.end()));
    }
    return false;
}

bool hasMailProgram() {
    return isAnyFor(QStringLiteral("x-scheme-handler/mailto"));
}

} // namespace reelsmith::mimehandlers
