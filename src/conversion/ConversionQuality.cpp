// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/ConversionQuality.h"

#include "RemoteSettings/RemoteSettings.h"
#include "platform/avfoundation/ExportPresets.h"
#include "platform/foundation/Console.h"
#include "remote/FeatureToggles.h"

namespace reelsmith {

QString exportPresetName(ConversionQuality quality, bool passthroughEnabled) {
    switch (quality) {
    case ConversionQuality::low:
        break;
    case ConversionQuality::medium:
        return passthroughEnabled ? AVAssetExportPresetHighestQuality : AVAssetExportPresetMediumQuality;
    case ConversionQuality::high:
        return passthroughEnabled ? AVAssetExportPresetPassthrough : AVAssetExportPresetHighestQuality;
    }
    return AVAssetExportPresetLowQuality;
}

QString exportPresetName(ConversionQuality quality) {
    const bool passthroughEnabled = RemoteSettings::shared().isEnabled<FeatureToggles::PassthroughEnabled>();
    console(QStringLiteral("Passthrough enabled: ") +
            (passthroughEnabled ? QStringLiteral("true") : QStringLiteral("false")));
    return exportPresetName(quality, passthroughEnabled);
}

} // namespace reelsmith
