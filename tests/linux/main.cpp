// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/SingleInstance.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// Another start of an application: --start ADDRESS NAME URL…. Ends with the role that it was given.
int start(const QStringList& arguments) {
    const QDBusConnection bus = QDBusConnection::connectToBus(arguments.at(2), QStringLiteral("session"));
    QList<QUrl> files;
    for (const QString& url : arguments.mid(4))
        files.append(QUrl(url));
    return static_cast<int>(reelsmith::SingleInstance(bus, arguments.at(3)).claim(files));
}

// A desktop where the user has nothing yet, unless the tests are to see a real one.
void useOwnHome(const QTemporaryDir& home) {
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("data")).toLocal8Bit());
    for (const char* shared : {"XDG_CONFIG_DIRS", "XDG_DATA_DIRS"})
        qputenv(shared, home.filePath(QStringLiteral("none")).toLocal8Bit());
    qputenv("XDG_CURRENT_DESKTOP", "Phone:GNOME");
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    if (!qEnvironmentVariableIsSet("HANDED_OVER"))
        useOwnHome(home);
    const QGuiApplication application(argc, argv);
    if (QGuiApplication::arguments().value(1) == QLatin1String("--start"))
        return start(QGuiApplication::arguments());
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
