// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/RunLoop.h"
#include "linux/ServiceTwin.h"

#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace reelsmith {

inline void writeFile(const QString& path, const QByteArray& contents) {
    QFile file(path);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly));
    file.write(contents);
}

inline QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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

/// A test with a bus of its own, on which a twin stands for the desktop's services, and with an empty home.
class DesktopTest : public testing::Test {
protected:
    static constexpr auto portal = "org.freedesktop.portal.Desktop";

    DesktopTest() {
        for (const char* folder : {"CONFIG_HOME", "CONFIG_DIRS", "DATA_HOME", "DATA_DIRS"})
            qputenv(QByteArray("XDG_") + folder, m_home.filePath(folder).toLocal8Bit());
    }

    bool isCalled(const QString& method, int count = 1) {
        return runLoopUntil([&] { return m_desktop.calls(method).size() == count; });
    }

    /// What `begin` completes with, which it does later.
    template<typename Result>
    static Result end(const std::function<void(std::function<void(Result)>)>& begin) {
        std::optional<Result> end;
        begin([&end](Result result) { end = result; });
        EXPECT_FALSE(end);
        EXPECT_TRUE(runLoopUntil([&end] { return end.has_value(); }));
        return end.value_or(Result());
    }

    QTemporaryDir m_home;
    PrivateBus m_bus;
    ServiceTwin m_desktop{m_bus.connect()};
    QDBusConnection m_client = m_bus.connect();
};

} // namespace reelsmith
