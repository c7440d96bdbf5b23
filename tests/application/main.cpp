// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/WorkerProcess.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        qputenv(variable, home.path().toUtf8());

    QCoreApplication application(argc, argv);
    reelsmith::WorkerProcess::setProgram(SCRIPTED_WORKER);
    testing::InitGoogleTest(&argc, argv);
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    return RUN_ALL_TESTS();
}
