// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Button.h"
#include "platform/uikit/UIViewController.h"
#include "settings/StarEvaluationView.h"

namespace reelsmith {

/// Asks how the user likes the application. Whoever likes it well is asked for a rating in the store. Main
/// thread.
class FeedbackViewController : public reelsmith::UIViewController, public StarEvaluationViewDelegate {
    Q_OBJECT
    Q_PROPERTY(reelsmith::Button* sendButton READ sendButton CONSTANT)
    Q_PROPERTY(reelsmith::StarEvaluationView* starEvaluationView READ starEvaluationView CONSTANT)

public:
    FeedbackViewController() = default;
    explicit FeedbackViewController(const NSCoder& coder) : UIViewController(coder) {}

    Button* sendButton() { return &m_sendButton; }
    StarEvaluationView* starEvaluationView() { return &m_starEvaluationView; }
    qint64 evaluation() const { return m_evaluation; } ///< in stars; 0 before any is chosen

    Q_INVOKABLE void sendTapped();
    Q_INVOKABLE void closeTapped() { goBack(); }

    void starsChanged(qint64 rating) override;

protected:
    void viewDidLoad() override;

private:
    Button m_sendButton;
    StarEvaluationView m_starEvaluationView;
    qint64 m_evaluation = 0;
};

} // namespace reelsmith
