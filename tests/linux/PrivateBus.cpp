// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/PrivateBus.h"

#include <gtest/gtest.h>

namespace reelsmith {

PrivateBus::PrivateBus() {
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=" BUS_CONFIGURATION), QStringLiteral("--nofork"),
                    QStringLiteral("--print-address")});
    EXPECT_TRUE(m_daemon.waitForReadyRead()) << m_daemon.readAllStandardError().toStdString();
    m_address = QString::fromLatin1(m_daemon.readLine()).trimmed();
}

PrivateBus::~PrivateBus() {
    for (const QString& name : m_connections)
        QDBusConnection::disconnectFromBus(name);
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

QDBusConnection PrivateBus::connect() {
    static int count = 0;
    m_connections.append(QStringLiteral("test%1").arg(++count));
    return QDBusConnection::connectToBus(m_address, m_connections.constLast());
}

} // namespace reelsmith
