// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/OnboardingViewControllerV2.h"

#include "platform/foundation/Bundle.h"
#include "platform/foundation/FatalError.h"
#include "remote/AnalyticsEvents.h"
#include "remote/ReelsmithAnalytics.h"
#include "settings/UserSettings.h"

namespace reelsmith {

namespace {

QUrl introVideo(const QString& name) {
    const std::optional<QUrl> url = Bundle::urlForResource(name, QStringLiteral("mp4"));
    if (!url)
        fatalError("An intro video is missing", "settings/OnboardingViewControllerV2", __LINE__);
    return *url;
}

} // namespace

OnboardingViewControllerV2::OnboardingViewControllerV2()
    : m_pages{{QStringLiteral("Welcome to Reelsmith"),
               QStringLiteral("The easiest way to convert your video files!"), QStringLiteral("Continue"),
               introVideo(QStringLiteral("intro0"))},
              {QStringLiteral("Convert using your phone"),
               QStringLiteral("All conversions are done offline, using your device's power"),
               QStringLiteral("Continue"), introVideo(QStringLiteral("intro1"))},
              {QStringLiteral("Multiple quality options"),
               QStringLiteral("Achieve the perfect balance between image quality and file sizes"),
               QStringLiteral("Start"), introVideo(QStringLiteral("intro2"))}} {}

void OnboardingViewControllerV2::viewDidLoad() {
    m_feedbackGenerator.prepare();
    installVideoLayer();
    showCurrentPage();
}

void OnboardingViewControllerV2::viewDidAppear() {
    ReelsmithAnalytics::logEvent(AnalyticsEvents::startedTutorial);
    UserSettings::shared().setDidShowOnboarding(true);
}

void OnboardingViewControllerV2::installVideoLayer() {
    m_playerLayer = std::make_unique<AVPlayerLayer>(m_player);
    m_playerLayer->setVideoGravity(AVPlayerLayer::VideoGravity::ResizeAspectFill);
}

void OnboardingViewControllerV2::showCurrentPage() {
    const OnboardingPage& page = m_pages.at(static_cast<std::size_t>(m_currentPage));
    m_player.replaceCurrentItem({page.videoURL});
    m_player.seek(CMTime{0, 1});
    m_player.play();
    m_titleLabel.setText(page.title);
    m_descriptionLabel.setText(page.message);
    m_continueButton.setTitle(page.buttonTitle);
}

void OnboardingViewControllerV2::continueTapped() {
    if (!m_continueButton.isEnabled())
        return;
    ++m_currentPage;
    m_feedbackGenerator.impactOccurred();
    emit currentPageChanged();
    if (m_currentPage < pageCount()) {
        showCurrentPage();
        return;
    }
    m_continueButton.setEnabled(false);
    if (m_delegate)
        m_delegate->onboardingDidFinish();
}

} // namespace reelsmith
