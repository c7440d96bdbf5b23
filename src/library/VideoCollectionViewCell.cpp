// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideoCollectionViewCell.h"

namespace reelsmith {

void VideoCollectionViewCell::configure(const ConvertedVideo& video) {
    m_titleLabel.setText(video.name().remove(QLatin1String(".mov")));
    m_thumbnail.start(video, m_videoImageView);
    m_containerView.setShadow({QStringLiteral("gray"), {0, 0}, 12, 0.7});
}

} // namespace reelsmith
