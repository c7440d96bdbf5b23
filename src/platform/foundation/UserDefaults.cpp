// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/UserDefaults.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/FileLock.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QtGlobal>
#include <limits>
#include <optional>
#include <utility>

namespace reelsmith {

namespace {

QString standardPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/reelsmith/reelsmith.conf");
}

// The right to write, for one thread of one process at a time.
FileLock lockForWriting(const QString& path) {
    QDir().mkpath(QFileInfo(path).path());
    return FileLock(path + QStringLiteral(".update"));
}

QVariant storedValue(const QString& path, const QString& key) {
    return QSettings(path, QSettings::IniFormat).value(key);
}

std::optional<bool> asBool(const QVariant& value) {
    const QString text = value.toString();
    if (text == QLatin1StringView("true") || text == QLatin1StringView("1"))
        return true;
    if (text == QLatin1StringView("false") || text == QLatin1StringView("0"))
        return false;
    return std::nullopt;
}

std::optional<qint64> asInteger(const QVariant& value) {
    bool isInteger = false;
    const qint64 integer = value.toString().toLongLong(&isInteger);
    return isInteger ? std::optional(integer) : std::nullopt;
}

// QSettings knows a changed file by its size and its time in milliseconds. A count that another process
// raised within the same millisecond would be taken for unchanged, so no two versions may share a time.
void moveTimeBeyond(const QDateTime& before, const QString& path) {
    if (!before.isValid() || QFileInfo(path).lastModified() > before)
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) ||
        !file.setFileTime(before.addMSecs(1), QFileDevice::FileModificationTime))
        qWarning("Settings file %s: cannot set its time", qUtf8Printable(path));
}

// The writing lock must be held.
void write(const QString& path, const QString& key, const QVariant& value) {
    const QDateTime before = QFileInfo(path).lastModified();
    QSettings settings(path, QSettings::IniFormat);
    settings.setValue(key, value);
    settings.sync();
    if (settings.status() == QSettings::AccessError)
        qWarning("Settings file %s: cannot be written", qUtf8Printable(path));
    moveTimeBeyond(before, path);
}

} // namespace

UserDefaults& UserDefaults::standard() {
    static UserDefaults standardDefaults(standardPath());
    return standardDefaults;
}

UserDefaults::UserDefaults(QString path) : m_path(std::move(path)) {}

void UserDefaults::registerDefaults(const QVariantMap& defaults) {
    const std::lock_guard lock(m_defaultsMutex);
    m_defaults.insert(defaults);
}

bool UserDefaults::boolForKey(const QString& key) const {
    return asBool(storedValue(m_path, key)).value_or(registeredDefault(key).toBool());
}

qint64 UserDefaults::integerForKey(const QString& key) const {
    return asInteger(storedValue(m_path, key)).value_or(registeredDefault(key).toLongLong());
}

void UserDefaults::setBoolForKey(bool value, const QString& key) {
    const FileLock lock = lockForWriting(m_path);
    write(m_path, key, value);
}

void UserDefaults::setIntegerForKey(qint64 value, const QString& key) {
    const FileLock lock = lockForWriting(m_path);
    write(m_path, key, value);
}

qint64 UserDefaults::incrementIntegerForKey(const QString& key) {
    const FileLock lock = lockForWriting(m_path);
    const qint64 current = integerForKey(key);
    if (current == std::numeric_limits<qint64>::max())
        fatalError("Integer overflow", "platform/foundation/UserDefaults", __LINE__);
    write(m_path, key, current + 1);
    return current + 1;
}

QVariant UserDefaults::registeredDefault(const QString& key) const {
    const std::lock_guard lock(m_defaultsMutex);
    return m_defaults.value(key);
}

} // namespace reelsmith
