// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariantMap>
#include <mutex>

namespace reelsmith {

/// The persistent key-value store: one file that several processes may use at once.
/// Nothing is cached: each read sees what any process has stored before it. Any thread.
/// What cannot be read, the whole file or one value, counts as not stored. A value that cannot be written
/// brings a warning in the log and may be lost; what was stored stays whole.
class UserDefaults {
public:
    /// The application's own store, in the user's configuration folder.
    static UserDefaults& standard();

    /// A store in the file at `path`, which appears with the first write.
    explicit UserDefaults(QString path);

    /// Answers for keys that are not stored. Never persisted; later calls add to earlier ones.
    void registerDefaults(const QVariantMap& defaults);

    /// The value of `key`, else its registered default, else false.
    bool boolForKey(const QString& key) const;

    /// The value of `key`, else its registered default, else 0.
    qint64 integerForKey(const QString& key) const;

    void setBoolForKey(bool value, const QString& key);
    void setIntegerForKey(qint64 value, const QString& key);

    /// Adds 1 to the stored integer and returns the new one; no other process can come between.
    /// Past the greatest integer the process stops with a fatal error.
    qint64 incrementIntegerForKey(const QString& key);

private:
    QVariant registeredDefault(const QString& key) const;

    const QString m_path;
    mutable std::mutex m_defaultsMutex;
    QVariantMap m_defaults;
};

} // namespace reelsmith
