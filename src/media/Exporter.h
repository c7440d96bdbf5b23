// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/Preset.h"

#include <functional>
#include <string>
#include <vector>

namespace reelsmith::media {

struct ExportJob {
    int source = -1; ///< descriptor, readable
    int output = -1; ///< descriptor, readable and writable, of an empty file
    Preset preset = Preset::Medium;
    std::vector<std::string> languages; ///< the user's, best first
};

/// Makes an MP4 file of a video and checks it. Returns what was passed over or left out, as a text for the
/// log. `progress` is called on the export's own threads with a growing fraction below 1. On failure the
/// output holds rubbish.
Result<std::string> exportVideo(const ExportJob& job, std::function<void(double)> progress);

} // namespace reelsmith::media
