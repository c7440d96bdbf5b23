// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryReview.h"

#include "platform/foundation/UserDefaults.h"
#include "platform/screens/SKStoreReviewController.h"
#include "platform/uikit/UINavigationController.h"

namespace reelsmith {

namespace {

const QString countKey = QStringLiteral("RELEVANT_ACTION_COUNT_VAR3");
constexpr qint64 countForReview = 2;

} // namespace

LibraryReview& LibraryReview::shared() {
    static LibraryReview review(UserDefaults::standard());
    return review;
}

bool LibraryReview::isDue() {
    if (m_reviewRequestedThisRun)
        return false;
    if (!m_countedThisRun)
        m_userDefaults.incrementIntegerForKey(countKey);
    m_countedThisRun = true;
    m_reviewRequestedThisRun = m_userDefaults.integerForKey(countKey) == countForReview;
    return m_reviewRequestedThisRun;
}

void LibraryReview::screenDidAppear(const UIViewController& screen) {
    const UINavigationController* stack = screen.navigationController();
    if (isDue() && stack != nullptr && stack->tabBarController() != nullptr)
        SKStoreReviewController::requestReview();
}

} // namespace reelsmith
