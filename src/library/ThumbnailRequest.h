// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ConvertedVideo.h"
#include "platform/uikit/ImageView.h"

#include <stop_token>

namespace reelsmith {

/// What a tile of the library asks for its picture with. Main thread.
class ThumbnailRequest {
public:
    /// Has the video's thumbnail shown once it is there, if `view` still is. Until then, and after a
    /// cancel, the view keeps what it shows; a picture that was already being made comes all the same.
    void start(const ConvertedVideo& video, ImageView& view);

    /// The picture is no longer wanted unless it is being made.
    void cancel();

private:
    std::stop_source m_unwanted;
};

} // namespace reelsmith
