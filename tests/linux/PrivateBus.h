// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>

namespace reelsmith {

/// A message bus of a test's own, with nothing on it.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const QString& address() const { return m_address; }

    /// A connection that nothing else uses, closed with the bus.
    QDBusConnection connect();

private:
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

} // namespace reelsmith
