// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/SingleInstance.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

namespace {

// Another start of an application: --start ADDRESS NAME URL…. Ends with the role that it was given.
int start(const QStringList& arguments) {
    const QDBusConnection bus = QDBusConnection::connectToBus(arguments.at(2), "session");
    QList<QUrl> files;
    for (const QString& url : arguments.mid(4))
        files.append(QUrl(url));
    return static_cast<int>(reelsmith::SingleInstance(bus, arguments.at(3)).claim(files));
}

} // namespace

// Signals that real services send while the program ends are lost by Qt's own thread for the bus.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's name
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libQt6DBus.so\n";
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (QGuiApplication::arguments().value(1) == "--start")
        return start(QGuiApplication::arguments());
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
