// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreensTest.h"

#include "platform/foundation/UserDefaults.h"
#include "platform/screens/SKStoreReviewController.h"
#include "platform/screens/StoreReviewQuota.h"
#include "platform/uikit/UIAlertController.h"

#include <QCoreApplication>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

class StoreReview : public ScreensTest {
protected:
    StoreReview() {
        UserDefaults::standard().setBoolForKey(false, u"STORE_REVIEW_PROMPT_SHOWN_"_s + REELSMITH_VERSION);
    }

    UIAlertController* prompt() const { return qobject_cast<UIAlertController*>(m_window.frontmost()); }
    static void runEverything() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST(StoreReviewQuota, ThreeTimesAYearAndOnceForAVersion) {
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(u"defaults"_s));
    const QDateTime start = QDateTime::fromSecsSinceEpoch(1'700'000'000);
    struct Step {
        int day;
        QString version;
        bool isAllowed;
    };
    for (const Step& step : {Step{0, u"1.0"_s, true}, Step{1, u"1.0"_s, false}, Step{10, u"1.1"_s, true},
                             Step{20, u"1.2"_s, true}, Step{30, u"1.3"_s, false}, Step{364, u"1.3"_s, false},
                             Step{365, u"1.3"_s, true}, Step{366, u"1.4"_s, false}, Step{375, u"1.4"_s, true},
                             Step{376, u"1.4"_s, false}}) {
        StoreReviewQuota quota(defaults, step.version);
        const QDateTime now = start.addDays(step.day);
        EXPECT_EQ(quota.allowsPrompt(now), step.isAllowed) << "day " << step.day;
        if (step.isAllowed)
            quota.countPrompt(now);
    }
}

TEST_F(StoreReview, ThePromptWaitsUntilNothingIsPresented) {
    UIViewController& card = present(std::make_unique<UIViewController>());
    SKStoreReviewController::requestReview();
    SKStoreReviewController::requestReview();
    runEverything();
    EXPECT_EQ(m_window.frontmost(), &card);
    // One screen takes the place of the other, without a moment between them.
    card.dismiss(Animated::Yes,
                 [this] { root().present(std::make_unique<UIViewController>(), Animated::Yes); });
    settle();
    runEverything();
    EXPECT_EQ(m_window.presentations().screens().size(), 1u) << "only the second card";
    root().dismiss(Animated::Yes);
    EXPECT_TRUE(runLoopUntil([this] { return prompt() != nullptr; }));
    settle();
    prompt()->press(1);
    settle();
    EXPECT_EQ(m_store->m_openings, 1);
    runEverything();
    EXPECT_TRUE(isNothingPresented()) << "one prompt for both requests";
    SKStoreReviewController::requestReview();
    runEverything();
    EXPECT_TRUE(isNothingPresented()) << "this version has had its prompt";
}

TEST_F(StoreReview, WithoutAStoreNobodyIsAsked) {
    m_store->m_isAvailable = false;
    SKStoreReviewController::requestReview();
    runEverything();
    EXPECT_TRUE(isNothingPresented());
}
