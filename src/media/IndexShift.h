// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"

#include <cstdint>

namespace reelsmith::media {

/// Moves what stands behind the index of an MP4 file so many bytes further on, 8 or more, with an empty box
/// in between, and corrects the index. For a file with little behind its index yet. Does nothing where the
/// index cannot count so far. Fails with WriteFailed, and leaves rubbish.
Result<void> pushMediaData(int descriptor, std::int64_t bytes);

} // namespace reelsmith::media
