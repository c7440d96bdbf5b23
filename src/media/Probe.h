// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/MediaInfo.h"
#include "media/Source.h"

namespace reelsmith::media {

/// Describes what `source` holds, without reading further.
MediaInfo probe(const Source& source);

} // namespace reelsmith::media
