// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/ImageView.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/UICollectionViewCell.h"

#include <stop_token>

namespace reelsmith {

/// One video in the library's list.
class ConvertedVideoCollectionViewCell : public reelsmith::UICollectionViewCell {
    Q_OBJECT
    Q_PROPERTY(reelsmith::ImageView* thumbnailImageView READ thumbnailImageView CONSTANT)
    Q_PROPERTY(reelsmith::Label* titleLabel READ titleLabel CONSTANT)

public:
    ImageView* thumbnailImageView() { return &m_thumbnailImageView; }
    Label* titleLabel() { return &m_titleLabel; }

    /// Requested when it shows another video, or none.
    std::stop_token gone() { return m_gone.get_token(); }

protected:
    void didEndDisplaying() override {
        m_gone.request_stop();
        m_gone = {};
    }

private:
    ImageView m_thumbnailImageView;
    Label m_titleLabel;
    std::stop_source m_gone;
};

} // namespace reelsmith
