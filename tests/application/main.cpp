// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/WorkerProcess.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTemporaryDir>
#include <cstring>
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
    if (argc < 2 || std::strcmp(argv[1], "--real-worker") != 0)
        reelsmith::WorkerProcess::setProgram(SCRIPTED_WORKER);
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    return RUN_ALL_TESTS();
}
