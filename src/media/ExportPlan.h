// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/MediaInfo.h"
#include "media/Orientation.h"
#include "media/Preset.h"
#include "media/PresetRules.h"

#include <string>
#include <vector>

namespace reelsmith::media {

/// Width and height in pixels.
struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
    Size turned() const { return {height, width}; }
};

/// What happens to a track: its packets go over as they are, or its samples are encoded anew.
enum class Treatment { Copy, Encode };

struct VideoPlan {
    int track = 0;
    Treatment treatment = Treatment::Encode;
    Orientation orientation = Orientation::Identity;
    Size scaled;          ///< of the picture before it is turned
    double reduction = 1; ///< stored height or width to scaled, whichever shrinks less
    double peakRate = 30; ///< frames a second; frames that come faster are dropped
    bool operator==(const VideoPlan&) const = default;

    Size size() const { return swapsSides(orientation) ? scaled.turned() : scaled; }
};

struct AudioPlan {
    int track = 0;
    Treatment treatment = Treatment::Encode;
    int sampleRate = 48'000;
    int channels = 2;
    int bitRate = 128'000;
    bool operator==(const AudioPlan&) const = default;
};

struct TextPlan {
    int track = 0;
    bool operator==(const TextPlan&) const = default;
};

/// What an export makes of each track; a track that no plan names is left out.
struct ExportPlan {
    Preset preset = Preset::Medium;
    VideoPlan video;
    std::vector<AudioPlan> sounds;
    std::vector<TextPlan> texts;
    /// The moment on the source's clock that becomes 0 in the result.
    double zeroSeconds = 0;
};

/// Decides everything that can be decided from what the headers say. `languages`: the user's, best first.
/// Fails with InvalidSource, Encrypted or Unsupported where there is no picture to show.
Result<ExportPlan> planExport(const MediaInfo& info, Preset preset,
                              const std::vector<std::string>& languages);

/// Bytes that the export will come to, roughly; 0 where the duration is unknown.
std::int64_t estimateBytes(const MediaInfo& info, const ExportPlan& plan);

/// Packets that the result will list, rather more than less where the file is an ordinary one; 0 where the
/// duration is unknown.
std::int64_t estimatePackets(const MediaInfo& info, const ExportPlan& plan);

} // namespace reelsmith::media
