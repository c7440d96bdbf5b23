// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "library/ConvertedVideo.h"

namespace reelsmith {

/// Hears that the user has deleted a video on its detail screen.
class VideoDetailDelegate {
public:
    virtual ~VideoDetailDelegate() = default;

    virtual void videoDeleted(const ConvertedVideo& video) = 0;
};

} // namespace reelsmith
