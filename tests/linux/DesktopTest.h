// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/RunLoop.h"
#include "linux/PrivateBus.h"
#include "linux/ServiceTwin.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
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

/// A test with a bus of its own, on which a twin stands for the desktop's services, and with an empty home.
class DesktopTest : public testing::Test {
protected:
    static constexpr auto portal = "org.freedesktop.portal.Desktop";

    DesktopTest() {
        for (const char* folder : {"CONFIG_HOME", "CONFIG_DIRS", "DATA_HOME", "DATA_DIRS"})
            qputenv(QByteArray("XDG_") + folder, m_home.filePath(folder).toLocal8Bit());
    }

    QTemporaryDir m_home;
    PrivateBus m_bus;
    ServiceTwin m_desktop{m_bus.connect()};
    QDBusConnection m_client = m_bus.connect();
};

} // namespace reelsmith
