// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/ReelsmithAnalytics.h"

#include "remote/AnalyticsEvents.h"
#include "settings/UserSettings.h"

#include "fakes/InMemoryServices.h"

#include <gtest/gtest.h>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

using Events = QList<InMemoryAnalytics::Event>;

class ReelsmithAnalyticsTest : public testing::Test {
protected:
    void TearDown() override { UserSettings::shared().setSendUsageData(true); }

    InMemoryAnalytics& m_service = *InMemoryServices::fresh().analytics;
};

} // namespace

TEST_F(ReelsmithAnalyticsTest, EventsCarryTheirParametersOrNoDictionaryAtAll) {
    ReelsmithAnalytics::logEvent(AnalyticsEvents::downloadSuccess);
    ReelsmithAnalytics::logConvertedFailure(u"unknown"_s);
    ReelsmithAnalytics::logConvertedFailure(std::nullopt);
    ReelsmithAnalytics::logEvaluatedApp(4);
    EXPECT_EQ(m_service.state().events,
              (Events{{u"download_success"_s, std::nullopt},
                      {u"converted_failure"_s, AnalyticsParameters{{u"reason"_s, u"unknown"_s}}},
                      {u"converted_failure"_s, AnalyticsParameters{}},
                      {u"evaluated_app"_s, AnalyticsParameters{{u"rating"_s, qint64{4}}}}}));
}

TEST_F(ReelsmithAnalyticsTest, WithoutConsentAnEventIsDroppedForGood) {
    UserSettings::shared().setSendUsageData(false);
    ReelsmithAnalytics::logEvent(AnalyticsEvents::startedTutorial);
    UserSettings::shared().setSendUsageData(true);
    ReelsmithAnalytics::logEvent(AnalyticsEvents::sharedVideo);
    EXPECT_EQ(m_service.state().events, (Events{{u"shared_video"_s, std::nullopt}}));
}
