// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/EnginePreset.h"

#include "platform/avfoundation/ExportPresets.h"

namespace reelsmith {

std::optional<media::Preset> enginePreset(const QString& presetName) {
    if (presetName == AVAssetExportPresetLowQuality)
        return media::Preset::Low;
    if (presetName == AVAssetExportPresetMediumQuality)
        return media::Preset::Medium;
    if (presetName == AVAssetExportPresetHighestQuality)
        return media::Preset::Highest;
    if (presetName == AVAssetExportPresetPassthrough)
        return media::Preset::Passthrough;
    return std::nullopt;
}

} // namespace reelsmith
