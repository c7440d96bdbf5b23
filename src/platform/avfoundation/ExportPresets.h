// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

namespace reelsmith {

// The names of the export presets; an export session knows no others.
inline constexpr QLatin1StringView AVAssetExportPresetLowQuality{"AVAssetExportPresetLowQuality"};
inline constexpr QLatin1StringView AVAssetExportPresetMediumQuality{"AVAssetExportPresetMediumQuality"};
inline constexpr QLatin1StringView AVAssetExportPresetHighestQuality{"AVAssetExportPresetHighestQuality"};
inline constexpr QLatin1StringView AVAssetExportPresetPassthrough{"AVAssetExportPresetPassthrough"};

} // namespace reelsmith
