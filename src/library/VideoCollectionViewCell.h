// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ThumbnailRequest.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/UICollectionViewCell.h"

namespace reelsmith {

/// One video in the library's grid.
class VideoCollectionViewCell : public reelsmith::UICollectionViewCell {
    Q_OBJECT
    Q_PROPERTY(reelsmith::View* containerView READ containerView CONSTANT)
    Q_PROPERTY(reelsmith::ImageView* videoImageView READ videoImageView CONSTANT)
    Q_PROPERTY(reelsmith::Label* titleLabel READ titleLabel CONSTANT)

public:
    View* containerView() { return &m_containerView; } ///< the card, with its shadow
    ImageView* videoImageView() { return &m_videoImageView; }
    Label* titleLabel() { return &m_titleLabel; }

    void configure(const ConvertedVideo& video);

protected:
    void didEndDisplaying() override { m_thumbnail.cancel(); }

private:
    View m_containerView;
    ImageView m_videoImageView;
    Label m_titleLabel;
    ThumbnailRequest m_thumbnail;
};

} // namespace reelsmith
