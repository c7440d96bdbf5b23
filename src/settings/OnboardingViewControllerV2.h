// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/AVPlayerLayer.h"
#include "platform/uikit/Button.h"
#include "platform/uikit/ImageView.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/UIImpactFeedbackGenerator.h"
#include "platform/uikit/UIViewController.h"
#include "settings/OnboardingDelegate.h"
#include "settings/OnboardingPage.h"

#include <memory>
#include <vector>

namespace reelsmith {

/// Says on the first start, page by page, what the application does, over a video for each. Main thread.
class OnboardingViewControllerV2 : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(reelsmith::AVPlayerLayer* playerLayer READ playerLayer CONSTANT)
    Q_PROPERTY(reelsmith::ImageView* backgroundImageView READ backgroundImageView CONSTANT)
    Q_PROPERTY(reelsmith::View* overlayView READ overlayView CONSTANT)
    Q_PROPERTY(reelsmith::Button* continueButton READ continueButton CONSTANT)
    Q_PROPERTY(reelsmith::Label* descriptionLabel READ descriptionLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* titleLabel READ titleLabel CONSTANT)
    Q_PROPERTY(int currentPage READ currentPage NOTIFY currentPageChanged)
    Q_PROPERTY(int pageCount READ pageCount CONSTANT)

public:
    /// A page's video that is missing is a fatal error.
    OnboardingViewControllerV2();

    /// Kept as long as this screen; null to go nowhere after the last page.
    void setDelegate(std::shared_ptr<OnboardingDelegate> delegate) { m_delegate = std::move(delegate); }

    ImageView* backgroundImageView() { return &m_backgroundImageView; }
    View* overlayView() { return &m_overlayView; }
    Button* continueButton() { return &m_continueButton; }
    Label* descriptionLabel() { return &m_descriptionLabel; }
    Label* titleLabel() { return &m_titleLabel; }
    AVPlayerLayer* playerLayer() const { return m_playerLayer.get(); } ///< null before the view is loaded
    int currentPage() const { return m_currentPage; }                  ///< from 0; pageCount() at the end
    int pageCount() const { return static_cast<int>(m_pages.size()); }

    Q_INVOKABLE void continueTapped();

signals:
    void currentPageChanged();

protected:
    void viewDidLoad() override;
    void viewDidAppear() override;

private:
    void installVideoLayer();
    void showCurrentPage();

    ImageView m_backgroundImageView;
    View m_overlayView;
    Button m_continueButton;
    Label m_descriptionLabel;
    Label m_titleLabel;
    int m_currentPage = 0;
    std::shared_ptr<OnboardingDelegate> m_delegate;
    UIImpactFeedbackGenerator m_feedbackGenerator{UIImpactFeedbackGenerator::Style::Medium};
    std::vector<OnboardingPage> m_pages;
    AVPlayer m_player;
    std::unique_ptr<AVPlayerLayer> m_playerLayer;
};

} // namespace reelsmith
