// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/ExportPlan.h"
#include "media/Handles.h"

namespace reelsmith::media {

/// One picture of the shown track as RGBA, upright, with square pixels, within `bounds` and never enlarged:
/// the first at or after `seconds`, or the last one before it. Fails as an export of the file would.
Result<FrameHandle> grabFrame(int descriptor, double seconds, Size bounds);

} // namespace reelsmith::media
