// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/ServiceSettings.h"

#include <QFile>
#include <QStandardPaths>

namespace reelsmith {

namespace {

QString unquoted(const QString& text) {
    const QLatin1Char quote('"');
    return text.size() >= 2 && text.startsWith(quote) && text.endsWith(quote)
               ? text.sliced(1, text.size() - 2)
               : text;
}

} // namespace

ServiceSettings ServiceSettings::read() {
    ServiceSettings settings;
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        settings.m_files.push_back(readFile(folder + QStringLiteral("/reelsmith/services.ini")));
    return settings;
}

QString ServiceSettings::text(const QString& key) const {
    const QString fromEnvironment = qEnvironmentVariable(key.toLatin1().constData()).trimmed();
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    for (const File& file : m_files) {
        if (const auto entry = file.constFind(key); entry != file.constEnd())
            return *entry;
    }
    return {};
}

// Not with QSettings, to which the commas, percent signs and semicolons of a list of headers mean something.
ServiceSettings::File ServiceSettings::readFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    File entries;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QString text = QString::fromUtf8(line).trimmed();
        const auto equals = text.indexOf(QLatin1Char('='));
        const bool isEntry = equals > 0 && !text.startsWith(QLatin1Char('#')) &&
                             !text.startsWith(QLatin1Char(';')) && !text.startsWith(QLatin1Char('['));
        if (isEntry)
            entries.insert(text.left(equals).trimmed(), unquoted(text.mid(equals + 1).trimmed()));
    }
    return entries;
}

} // namespace reelsmith
