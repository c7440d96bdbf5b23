// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/FeedbackViewController.h"

#include "platform/screens/SKStoreReviewController.h"
#include "remote/ReelsmithAnalytics.h"
#include "settings/UserSettings.h"

namespace reelsmith {

namespace {

constexpr qreal buttonRadius = 16;
constexpr qreal dimmed = 0.5;
constexpr qint64 leastGoodRating = 4;

} // namespace

void FeedbackViewController::viewDidLoad() {
    m_starEvaluationView.setDelegate(this);
    m_sendButton.setTitle(QStringLiteral("Send"));
    m_sendButton.setCornerRadius(buttonRadius);
    m_sendButton.setAlpha(dimmed);
    m_sendButton.setEnabled(false);
}

void FeedbackViewController::starsChanged(qint64 rating) {
    m_evaluation = rating;
    m_sendButton.setAlpha(1);
    m_sendButton.setEnabled(true);
}

void FeedbackViewController::sendTapped() {
    if (isBeingDismissed())
        return;
    ReelsmithAnalytics::logEvaluatedApp(m_evaluation);
    if (m_evaluation < leastGoodRating) {
        dismiss(Animated::Yes);
        return;
    }
    dismiss(Animated::Yes, [] {
        UserSettings::shared().setAchievedSuccess(true);
        SKStoreReviewController::requestReview();
    });
}

} // namespace reelsmith
