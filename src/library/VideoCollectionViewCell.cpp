// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideoCollectionViewCell.h"

namespace reelsmith {

// A reused tile keeps its picture until the new one comes, and takes whatever comes late.
void VideoCollectionViewCell::configure(const ConvertedVideo& video) {
    m_titleLabel.setText(video.name().remove(QLatin1String(".mov")));
    video.thumbnail(
        [self = QPointer(this)](const UIImage& image) {
            if (self)
                self->m_videoImageView.setImage(image);
        },
        m_gone.get_token());
    m_containerView.setShadow({QStringLiteral("gray"), {0, 0}, 12, 0.7});
}

} // namespace reelsmith
