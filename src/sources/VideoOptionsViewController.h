// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/CanShareFiles.h"
#include "library/ConvertedVideo.h"
#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/ImageView.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/UIViewController.h"

namespace reelsmith {

/// Hears that the user has deleted a video.
class VideoOptionsViewControllerDelegate {
public:
    virtual ~VideoOptionsViewControllerDelegate() = default;

    virtual void videoDeleted(const ConvertedVideo& video) = 0;
};

/// What can be done with one video of the library. Main thread.
class VideoOptionsViewController : public reelsmith::UIViewController, public CanShareFiles {
    Q_OBJECT
    Q_PROPERTY(reelsmith::Label* titleLabel READ titleLabel CONSTANT)
    Q_PROPERTY(reelsmith::ImageView* thumbImageView READ thumbImageView CONSTANT)

public:
    explicit VideoOptionsViewController(ConvertedVideo video);
    explicit VideoOptionsViewController(const NSCoder& coder);

    Label* titleLabel() { return &m_titleLabel; }
    ImageView* thumbImageView() { return &m_thumbImageView; }
    const ConvertedVideo& video() const { return m_video; }
    void setDelegate(const WeakDelegate<VideoOptionsViewControllerDelegate>& delegate) {
        m_delegate = delegate;
    }

    Q_INVOKABLE void playTapped();
    Q_INVOKABLE void shareTapped();
    /// Deletes without asking, leaves, and tells the delegate.
    Q_INVOKABLE void deleteTapped();
    /// Leaves without a word to anyone.
    Q_INVOKABLE void requestDismiss();

protected:
    void viewDidLoad() override;
    UIViewController& sharingScreen() override { return *this; }

private:
    const ConvertedVideo m_video;
    WeakDelegate<VideoOptionsViewControllerDelegate> m_delegate;
    Label m_titleLabel;
    ImageView m_thumbImageView;
};

} // namespace reelsmith
