// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/VideoPreview.h"
#include "platform/uikit/ImageView.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/UICollectionViewCell.h"

#include <memory>

namespace reelsmith {

/// One movie in the photo picker.
class UIImagePickerCell : public reelsmith::UICollectionViewCell {
    Q_OBJECT
    Q_PROPERTY(reelsmith::ImageView* thumbnailImageView READ thumbnailImageView CONSTANT)
    Q_PROPERTY(reelsmith::Label* nameLabel READ nameLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* durationLabel READ durationLabel CONSTANT)

public:
    ImageView* thumbnailImageView() { return &m_thumbnailImageView; }
    Label* nameLabel() { return &m_nameLabel; } ///< for those who do not see the picture
    Label* durationLabel() { return &m_durationLabel; }

    /// Shows a movie, as far as it is known; the rest follows while the cell is in sight.
    void showVideo(const QUrl& url, const VideoPreview::Facts* known, VideoPreview::Completion learned);

protected:
    void didEndDisplaying() override { m_preview.reset(); }

private:
    void showFacts(const VideoPreview::Facts& facts);

    ImageView m_thumbnailImageView;
    Label m_nameLabel;
    Label m_durationLabel;
    std::unique_ptr<VideoPreview> m_preview;
};

} // namespace reelsmith
