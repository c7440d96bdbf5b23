// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QLocale>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const QTemporaryDir home, settings;
    qputenv("HOME", home.path().toUtf8());
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        qputenv(variable, settings.path().toUtf8());
    QCoreApplication application(argc, argv);
    // Numbers and dates as the tests spell them.
    QLocale::setDefault(QLocale(QLocale::English));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
