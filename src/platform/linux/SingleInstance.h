// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>

namespace reelsmith {

/// Sees to it that the application runs once: later starts hand over what they were started for. Main thread.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    enum class Role {
        First,     ///< this is the instance; later starts come as signals
        Forwarded, ///< another has taken what this start was for; the caller ends
        Separate,  ///< there is no bus, or the other instance does not answer: this one runs on its own
    };

    SingleInstance(const QDBusConnection& sessionBus, const QString& applicationId);
    ~SingleInstance() override;

    /// Asks for the application's name, and where it is taken hands `files` to the instance that has it: it
    /// opens them, or comes to the front when there are none. Blocks for some milliseconds, at most 5 s, and
    /// runs no event loop: signals come only after the caller's own loop has begun.
    Role claim(const QList<QUrl>& files);

signals:
    /// The application is to come to the front.
    void activated();

    /// The same, and it is to open what another program or start hands over; these may be any URLs.
    void opened(const QList<QUrl>& files);

private:
    bool forward(const QList<QUrl>& files) const;

    QDBusConnection m_bus;
    const QString m_name;
    const QString m_path;
    bool m_isFirst = false;
};

} // namespace reelsmith
