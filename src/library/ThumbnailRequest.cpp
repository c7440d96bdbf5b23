// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/ThumbnailRequest.h"

#include <QPointer>

namespace reelsmith {

void ThumbnailRequest::start(const ConvertedVideo& video, ImageView& view) {
    video.thumbnail(
        [target = QPointer(&view)](const UIImage& image) {
            if (target)
                target->setImage(image);
        },
        m_unwanted.get_token());
}

void ThumbnailRequest::cancel() {
    m_unwanted.request_stop();
    m_unwanted = {};
}

} // namespace reelsmith
