// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>

namespace reelsmith {

/// A message bus of a test's own, with nothing on it.
class PrivateBus {
public:
    PrivateBus() {
        m_daemon.start("dbus-daemon", {"--config-file=" BUS_CONFIGURATION, "--nofork", "--print-address"});
        EXPECT_TRUE(m_daemon.waitForReadyRead()) << m_daemon.readAllStandardError().toStdString();
        m_address = QString::fromLatin1(m_daemon.readLine()).trimmed();
    }
    ~PrivateBus() {
        for (const QString& name : m_connections)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const QString& address() const { return m_address; }

    /// A connection that nothing else uses, closed with the bus.
    QDBusConnection connect() {
        m_connections.append(QString("test%1").arg(++m_lastConnection));
        return QDBusConnection::connectToBus(m_address, m_connections.constLast());
    }

private:
    inline static int m_lastConnection = 0;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

} // namespace reelsmith
