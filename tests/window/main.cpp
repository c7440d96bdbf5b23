// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QtQml/QQmlExtensionPlugin>
#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(ReelsmithPlugin)
Q_IMPORT_QML_PLUGIN(Reelsmith_PartsPlugin)

int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* variable :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, home.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
