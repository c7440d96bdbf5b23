// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"

#include <cstdint>

namespace reelsmith::media {

/// Opens a finished MP4 file as a player would and makes sure that the index stands in front of the media
/// data and lists the pictures that were written. Fails with WriteFailed.
Result<void> checkResult(int descriptor, std::int64_t pictureCount);

} // namespace reelsmith::media
