// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/WorkerProcess.h"
#include "platform/linux/multimedia/MultimediaPlayback.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtQml/QQmlExtensionPlugin>
#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(ReelsmithPlugin)
Q_IMPORT_QML_PLUGIN(Reelsmith_PartsPlugin)
Q_IMPORT_QML_PLUGIN(Reelsmith_ScreensPlugin)

// Qt Quick's store of loaded pictures outlives its last window, and Qt's player forgets the options of a
// codec. No screen or item is excused; to tell, the way to an allocation must be known through Qt's own code.
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizers' names
extern "C" const char* __asan_default_options() {
    return "fast_unwind_on_malloc=0";
}
extern "C" const char* __lsan_default_suppressions() {
    return "leak:QQuickPixmap::load\n"
           "leak:QSGRenderContext::textureForFactory\n"
           "leak:libffmpegmediaplugin.so\n";
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

/// What an interface file in error says while it runs, and a change of screens that nothing ended.
void failOnComplaints(QtMsgType, const QMessageLogContext&, const QString& message) {
    static const QRegularExpression complaint(
        "TypeError|ReferenceError|Unable to assign|Binding loop|got stuck|"
        "Cannot (assign|read|call)|is not defined|QML .*: ");
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    if (message.contains(complaint))
        ADD_FAILURE() << qPrintable(message);
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* variable :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, home.path().toUtf8());
    for (const char* bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
        qputenv(bus, "unix:path=/nowhere");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    reelsmith::MultimediaPlayback::chooseEngine();
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    reelsmith::WorkerProcess::setProgram(SCRIPTED_WORKER);
    qInstallMessageHandler(failOnComplaints);
    return RUN_ALL_TESTS();
}
