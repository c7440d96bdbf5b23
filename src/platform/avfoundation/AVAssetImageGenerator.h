// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/AVAsset.h"
#include "platform/avfoundation/CGImage.h"
#include "platform/foundation/Error.h"

#include <QSize>

namespace reelsmith {

/// Takes still pictures out of an asset.
class AVAssetImageGenerator {
public:
    explicit AVAssetImageGenerator(AVAsset asset) : m_asset(std::move(asset)) {}

    /// Has pictures upright, as they are meant to be shown. Other pictures are not to be had here.
    bool appliesPreferredTrackTransform = false;

    /// In pixels; larger pictures are made smaller to fit, never the other way round.
    QSize maximumSize{4096, 4096};

    /// The first frame at or after `time`, or the last one before it. Waits for its turn and for the worker:
    /// not for the main thread.
    Result<CGImage> copyCGImage(CMTime time) const;

private:
    AVAsset m_asset;
};

} // namespace reelsmith
