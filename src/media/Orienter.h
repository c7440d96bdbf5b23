// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/Handles.h"
#include "media/Orientation.h"

namespace reelsmith::media {

/// The picture turned and mirrored: a new frame (64-byte aligned) with the properties of the one given, or
/// the very one for Identity. Takes 8-bit planar pictures (with chroma halved both ways or not at all) and
/// packed RGBA; others fail as Unsupported.
Result<FrameHandle> orient(FrameHandle frame, Orientation orientation);

} // namespace reelsmith::media
