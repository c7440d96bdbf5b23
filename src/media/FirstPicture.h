// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Handles.h"

namespace reelsmith::media {

/// Takes over into a track's description what MP4's and Matroska's headers leave to the pictures: format,
/// profile, colours, and how many may stand before one that is shown earlier (video_delay). Looks at no more
/// than the beginning of the track's first packet. False where that does not tell. H.264 and HEVC.
bool describeByFirstPicture(AVCodecParameters& codec, const AVPacket& first);

} // namespace reelsmith::media
