// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/RunLoop.h"
#include "linux/PrivateBus.h"
#include "linux/ServiceTwin.h"

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <gtest/gtest.h>

namespace reelsmith {

/// A test with a bus of its own, on which a twin stands for the desktop's services.
class DesktopTest : public testing::Test {
protected:
    static constexpr auto portal = "org.freedesktop.portal.Desktop";

    QUrl file(const QString& name, const QByteArray& contents = "film") const {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
        return QUrl::fromLocalFile(file.fileName());
    }

    static QByteArray contents(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
    PrivateBus m_bus;
    ServiceTwin m_desktop{m_bus.connect()};
    QDBusConnection m_client = m_bus.connect();
};

} // namespace reelsmith
