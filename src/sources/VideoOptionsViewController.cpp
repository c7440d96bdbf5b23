// SPDX-License-Identifier: GPL-3.0-or-later
#include "sources/VideoOptionsViewController.h"

#include "library/FileSystem.h"
#include "library/VideoPlayer.h"
#include "remote/AnalyticsEvents.h"
#include "remote/ReelsmithAnalytics.h"

#include <utility>

namespace reelsmith {

VideoOptionsViewController::VideoOptionsViewController(ConvertedVideo video) : m_video(std::move(video)) {
    setModalTransitionStyle(UIModalTransitionStyle::CrossDissolve);
    setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
}

VideoOptionsViewController::VideoOptionsViewController(const NSCoder& coder)
    : UIViewController(coder), m_video(QUrl()) {}

void VideoOptionsViewController::viewDidLoad() {
    m_titleLabel.setText(m_video.name());
    m_video.thumbnail([self = QPointer(this)](const UIImage& image) {
        if (self)
            self->m_thumbImageView.setImage(image);
    });
}

void VideoOptionsViewController::playTapped() {
    ReelsmithAnalytics::logEvent(AnalyticsEvents::playedVideo);
    VideoPlayer::play(m_video.url(), *this);
}

void VideoOptionsViewController::shareTapped() {
    share(m_video.url());
}

void VideoOptionsViewController::deleteTapped() {
    if (isBeingDismissed())
        return;
    FileSystem::shared().deleteVideo(m_video.url());
    ReelsmithAnalytics::logEvent(AnalyticsEvents::deletedVideo);
    dismiss(Animated::Yes, [self = QPointer(this)] {
        VideoOptionsViewControllerDelegate* const delegate = self ? self->m_delegate.get() : nullptr;
        if (delegate != nullptr)
            delegate->videoDeleted(self->m_video);
    });
}

void VideoOptionsViewController::requestDismiss() {
    dismiss(Animated::Yes);
}

} // namespace reelsmith
