// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/Experiments.h"
#include "RemoteSettings/ABTests.h"
#include "conversion/ConversionQuality.h"
#include "platform/avfoundation/ExportPresets.h"

#include "fakes/ConsoleCapture.h"
#include "fakes/InMemoryServices.h"

#include <QCoreApplication>
#include <cstdio>
#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

template<int length>
struct Sized {
    static constexpr auto key = "key"_L1;
    static inline const QString id = QString(length, u'a');
};

struct Wide { // one character of eleven units
    static constexpr auto key = "key"_L1;
    static inline const QString id = u"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"_s;
};

class ExperimentsTest : public testing::Test {
protected:
    QString participation() const {
        return m_services.analytics->state().userProperties.value(u"participating_tests"_s);
    }

    void setPassthrough(const QString& text) const {
        m_services.remoteConfig->setState({.activated = {{u"enable_passthrough_preset"_s, text}}});
    }

    InMemoryServices& m_services = InMemoryServices::fresh();
};

using ExperimentsDeathTest = ExperimentsTest;

} // namespace

TEST_F(ExperimentsTest, ParticipationMayHave36CharactersAsAReaderCountsThem) {
    auto& tests = ABTests::shared();
    tests.registerExperiments<>();
    EXPECT_EQ(participation(), "|");
    tests.registerExperiments<Sized<1>, Experiments::newVideoLayout>();
    EXPECT_EQ(participation(), "|a|3|");
    tests.registerExperiments<Sized<32>, Sized<1>>();
    EXPECT_EQ(participation().size(), 36);
    tests.registerExperiments<Sized<32>, Wide>();
    EXPECT_EQ(participation().size(), 46);
}

TEST_F(ExperimentsDeathTest, MoreThan36CharactersStopTheProcessOnceTheyArePrinted) {
    const auto registerTooMuch = [] {
        setConsoleSink([](const QString& line) { std::fprintf(stderr, "%s\n", qUtf8Printable(line)); });
        ABTests::shared().registerExperiments<Sized<32>, Sized<2>>();
    };
    EXPECT_DEATH(
        registerTooMuch(),
        "Compatible experiments: \\|a{32}\\|aa\\|\n"
        "RemoteSettings/ABTests:32: Fatal error: Experiment keys can't have more than 36 characters");
}

TEST_F(ExperimentsTest, TheInstallationTokenIsRefreshedAndPrinted) {
    const ConsoleCapture capture;
    const auto print = [] {
        ABTests::shared().printInstallationAuthToken();
        QCoreApplication::sendPostedEvents();
    };
    print();
    EXPECT_TRUE(capture.lines().isEmpty());
    m_services.installations->token = u"token"_s;
    print();
    m_services.installations->error = ServiceError{u"offline"_s};
    print();
    EXPECT_EQ(capture.lines(),
              (QStringList{u"Installation auth token: token#2"_s, u"Error fetching token: offline"_s}));
}

TEST_F(ExperimentsTest, PassthroughMovesEachQualityAboveLowOneStepUp) {
    using enum ConversionQuality;
    const struct {
        ConversionQuality quality;
        QLatin1StringView off, on;
    } cases[] = {{low, AVAssetExportPresetLowQuality, AVAssetExportPresetLowQuality},
                 {medium, AVAssetExportPresetMediumQuality, AVAssetExportPresetHighestQuality},
                 {high, AVAssetExportPresetHighestQuality, AVAssetExportPresetPassthrough}};
    for (const auto& [quality, off, on] : cases) {
        const ConsoleCapture capture;
        setPassthrough(u"yes"_s);
        EXPECT_EQ(exportPresetName(quality), off);
        setPassthrough(u"1"_s);
        EXPECT_EQ(exportPresetName(quality), on);
        EXPECT_EQ(capture.lines(),
                  (QStringList{u"Passthrough enabled: false"_s, u"Passthrough enabled: true"_s}));
        EXPECT_EQ(exportPresetName(quality, false), off);
    }
}
