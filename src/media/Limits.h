// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// Bounds on what a file may ask of this machine.
namespace reelsmith::media {

/// A picture of more pixels is refused: 8K passes, a bomb does not.
inline constexpr std::int64_t maximumPixels = 8192LL * 8192LL;

inline constexpr int maximumTracks = 128;

} // namespace reelsmith::media
