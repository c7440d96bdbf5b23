// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkServiceTransport.h"
#include "platform/services/measurement/MeasurementEngine.h"

#include "fakes/InMemoryRemoteConfig.h"

#include <QCoreApplication>
#include <QDateTime>
#include <cstdio>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

// What the kill test kills: --measure FOLDER URL FIRST logs numbered events from FIRST on, and prints each
// number once the call has returned.
[[noreturn]] void measure(const QStringList& arguments) {
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
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == QLatin1StringView("--measure"))
        measure(application.arguments());
    testing::InitGoogleTest(&argc, argv);
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    return RUN_ALL_TESTS();
}
