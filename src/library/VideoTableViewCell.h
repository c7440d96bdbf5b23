// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ConvertedVideo.h"
#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/ImageView.h"
#include "platform/uikit/UITableViewCell.h"

namespace reelsmith {

class UIViewController;

/// Says what the play button plays, and over which screen.
class VideoCellDelegate {
public:
    virtual ~VideoCellDelegate() = default;

    virtual const ConvertedVideo& video() const = 0;
    virtual UIViewController& presentingScreen() = 0;
};

/// The picture of a video, with a play button on it.
class VideoTableViewCell : public reelsmith::UITableViewCell {
    Q_OBJECT
    Q_PROPERTY(reelsmith::View* playBG READ playBG CONSTANT)
    Q_PROPERTY(reelsmith::ImageView* thumbImageView READ thumbImageView CONSTANT)

public:
    View* playBG() { return &m_playBG; } ///< behind the play button
    ImageView* thumbImageView() { return &m_thumbImageView; }
    void setDelegate(const WeakDelegate<VideoCellDelegate>& delegate) { m_delegate = delegate; }

    Q_INVOKABLE void playTapped();

private:
    View m_playBG;
    ImageView m_thumbImageView;
    WeakDelegate<VideoCellDelegate> m_delegate;
};

} // namespace reelsmith
