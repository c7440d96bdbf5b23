// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/UserDefaults.h"
#include "platform/linux/network/NetworkServiceTransport.h"
#include "platform/services/LocalInstallations.h"
#include "platform/services/measurement/MeasurementEngine.h"

#include "fakes/InMemoryRemoteConfig.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

// What the tests of several processes run beside themselves: --increment FILE KEY COUNT
int increment(const QStringList& arguments) {
    UserDefaults defaults(arguments.at(2));
    for (int i = 0; i < arguments.at(4).toInt(); ++i)
        defaults.incrementIntegerForKey(arguments.at(3));
    return 0;
}

// --installation FOLDER
int printInstallation(const QStringList& arguments) {
    std::fputs(qPrintable(LocalInstallations(arguments.at(2)).id()), stdout);
    return 0;
}

// What the kill test kills: --measure FOLDER URL FIRST logs numbered events from FIRST on, and prints each
// number once the call has returned.
[[noreturn]] int measure(const QStringList& arguments) {
    const auto remoteConfig = std::make_shared<InMemoryRemoteConfig>();
    remoteConfig->setState({.activated = {{u"measurement_upload_interval_seconds"_s, u"1"_s},
                                          {u"measurement_max_bundle"_s, u"20"_s}}});
    MeasurementEngine engine(arguments.at(2),
                             {.endpoint = ServiceConfiguration::Endpoint{QUrl(arguments.at(3))},
                              .transport = std::make_shared<NetworkServiceTransport>(),
                              .remoteConfig = remoteConfig,
                              .shortestRetryWait = std::chrono::milliseconds(100)});
    for (qint64 number = arguments.at(4).toLongLong();; ++number) {
        engine.logEventWithName(u"numbered"_s, AnalyticsParameters{{u"number"_s, number}});
        std::printf("%lld\n", static_cast<long long>(number));
        std::fflush(stdout);
        std::getchar(); // whoever kills sets the pace
    }
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        qputenv(variable, home.path().toUtf8());

    const QCoreApplication application(argc, argv);
    const QMap<QString, int (*)(const QStringList&)> helpers{
        {u"--increment"_s, increment}, {u"--installation"_s, printInstallation}, {u"--measure"_s, measure}};
    if (const auto helper = helpers.value(QCoreApplication::arguments().value(1)))
        return helper(QCoreApplication::arguments());

    testing::InitGoogleTest(&argc, argv);
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    return RUN_ALL_TESTS();
}
