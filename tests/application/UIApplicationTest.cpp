// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UIApplication.h"

#include "Support.h"

#include "platform/foundation/OngoingWork.h"
#include "platform/foundation/Timer.h"

#include <thread>

using namespace reelsmith;

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

class BackgroundTasks : public testing::Test {
protected:
    std::unique_ptr<UIApplication> application(UIApplication::TaskLimits limits) {
        return std::make_unique<UIApplication>(std::make_unique<CountingInhibitor>(m_holds), limits);
    }

    int m_holds = 0;
    QList<int> m_expired;
};

} // namespace

TEST_F(BackgroundTasks, TheDeviceStaysAwakeWhileAnyTaskIsOpen) {
    const auto application = this->application({hours(1), hours(1)});
    const auto first = application->beginBackgroundTask({});
    const auto second = application->beginBackgroundTask({});
    EXPECT_NE(first, second);
    EXPECT_EQ(m_holds, 1);
    application->endBackgroundTask(first);
    application->endBackgroundTask(first);
    EXPECT_EQ(m_holds, 1);
    int laterHolds = 0;
    application->setSleepInhibitor(std::make_unique<CountingInhibitor>(laterHolds));
    EXPECT_EQ(m_holds, 0);
    EXPECT_EQ(laterHolds, 1);
    application->endBackgroundTask(second);
    EXPECT_EQ(laterHolds, 0);
}

TEST_F(BackgroundTasks, WithoutWorkOrAtItsOwnLimitEveryTaskExpiresOnceAndIsDropped) {
    const auto application = this->application({milliseconds(1), hours(1)});
    UIBackgroundTaskIdentifier ending = 0;
    application->beginBackgroundTask([this] { m_expired.append(1); });
    ending = application->beginBackgroundTask([&] {
        m_expired.append(2);
        application->endBackgroundTask(ending);
    });
    EXPECT_TRUE(runLoopUntil([this] { return m_holds == 0; }));
    EXPECT_EQ(m_expired, (QList<int>{1, 2}));

    const OngoingWork work; // keeps no task for ever
    const auto limited = this->application({hours(1), milliseconds(1)});
    limited->beginBackgroundTask([this] { m_expired.append(3); });
    EXPECT_TRUE(runLoopUntil([this] { return m_holds == 0; }));
    EXPECT_EQ(m_expired, (QList<int>{1, 2, 3}));
}

TEST_F(BackgroundTasks, WorkKeepsATaskFromExpiringUntilItEnds) {
    const auto application = this->application({milliseconds(1), hours(1)});
    auto work = std::make_unique<OngoingWork>();
    application->beginBackgroundTask([&] {
        EXPECT_FALSE(work);
        EXPECT_EQ(m_holds, 1);
        m_expired.append(1);
    });
    int ticks = 0;
    const auto clock = Timer::scheduledTimer(milliseconds(1), [&ticks] { ++ticks; });
    ASSERT_TRUE(runLoopUntil([&ticks] { return ticks > 20; }));
    EXPECT_TRUE(m_expired.isEmpty());
    std::thread([&work] { work.reset(); }).join();
    EXPECT_TRUE(runLoopUntil([this] { return m_holds == 0; }));
    EXPECT_EQ(m_expired, QList<int>{1});
}

TEST(UIApplication, TheScreenStaysOnWhileTheIdleTimerIsDisabledAndTheWindowActive) {
    int holds = 0;
    UIApplication application(std::make_unique<Inhibitor>(), {});
    application.setIdleTimerDisabled(true);
    application.setIdleInhibitor(std::make_unique<CountingInhibitor>(holds));
    EXPECT_EQ(holds, 0);
    application.setActive(true);
    application.setActive(true);
    EXPECT_EQ(holds, 1);
    application.setActive(false);
    EXPECT_EQ(holds, 0);
    application.setActive(true);
    application.setIdleTimerDisabled(false);
    EXPECT_EQ(holds, 0);
}
