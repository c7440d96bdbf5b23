// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace reelsmith::media {

/// The four ways to export. The values travel between processes: append only.
enum class Preset : std::uint8_t { Low, Medium, Highest, Passthrough };

inline constexpr int presetCount = 4;

} // namespace reelsmith::media
