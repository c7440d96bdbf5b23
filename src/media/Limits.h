// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// Bounds on what a file may ask of this machine.
namespace reelsmith::media {

/// A picture of more pixels is refused: 8K passes, a bomb does not.
inline constexpr std::int64_t maximumPixels = 8192LL * 8192LL;

/// A picture of more pixels takes memory that a phone has little of: as few of them as can be are held.
inline constexpr std::int64_t largePixels = 1920LL * 1088LL;

inline constexpr int maximumTracks = 128;

} // namespace reelsmith::media
