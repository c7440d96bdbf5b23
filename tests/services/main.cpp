// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/UserDefaults.h"
#include "platform/services/LocalInstallations.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

// What the tests of two processes run beside themselves: --increment FILE KEY COUNT
int increment(const QStringList& arguments) {
    reelsmith::UserDefaults defaults(arguments.at(2));
    for (int i = 0; i < arguments.at(4).toInt(); ++i)
        defaults.incrementIntegerForKey(arguments.at(3));
    return 0;
}

// --installation FOLDER
int printInstallation(const QStringList& arguments) {
    std::fputs(qPrintable(reelsmith::LocalInstallations(arguments.at(2)).id()), stdout);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        qputenv(variable, home.path().toUtf8());

    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == QLatin1StringView("--increment"))
        return increment(application.arguments());
    if (application.arguments().value(1) == QLatin1StringView("--installation"))
        return printInstallation(application.arguments());

    testing::InitGoogleTest(&argc, argv);
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    return RUN_ALL_TESTS();
}
