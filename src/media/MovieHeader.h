// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

namespace reelsmith::media {

/// The unit, as a fraction of a second, in which an MP4 or MOV file counts its own duration ("mvhd"); nothing
/// where it does not say.
std::optional<std::int32_t> movieTimescale(int descriptor);

/// Whether some track of an MP4 file has several descriptions of its samples ("stsd"), as joined films have.
bool hasSeveralDescriptions(int descriptor);

/// Whether an MP4 file may list samples outside its one index, in fragments.
bool hasFragments(int descriptor);

} // namespace reelsmith::media
