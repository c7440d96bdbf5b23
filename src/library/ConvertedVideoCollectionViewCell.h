// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ThumbnailRequest.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/UICollectionViewCell.h"

namespace reelsmith {

/// One video in the library's list.
class ConvertedVideoCollectionViewCell : public reelsmith::UICollectionViewCell {
    Q_OBJECT
    Q_PROPERTY(reelsmith::ImageView* thumbnailImageView READ thumbnailImageView CONSTANT)
    Q_PROPERTY(reelsmith::Label* titleLabel READ titleLabel CONSTANT)

public:
    ImageView* thumbnailImageView() { return &m_thumbnailImageView; }
    Label* titleLabel() { return &m_titleLabel; }

    void showThumbnail(const ConvertedVideo& video) { m_thumbnail.start(video, m_thumbnailImageView); }

protected:
    void didEndDisplaying() override { m_thumbnail.cancel(); }

private:
    ImageView m_thumbnailImageView;
    Label m_titleLabel;
    ThumbnailRequest m_thumbnail;
};

} // namespace reelsmith
