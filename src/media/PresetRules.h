// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Preset.h"

namespace reelsmith::media {

/// What a preset allows, and the rates it aims at.
struct PresetRules {
    int shortSide;       ///< pixels, the most
    double peakRate;     ///< frames a second, the most
    int refinement;      ///< x264's subme: how closely it looks where a block has moved from
    double rateFactor;   ///< x264's CRF
    int stereoBitRate;   ///< AAC, bits a second
    int monoBitRate;     ///< AAC, bits a second
    double bitsPerPixel; ///< what the rate factor comes to on ordinary 1280x720, for estimates
};

/// Passthrough encodes what it cannot copy as Highest does.
constexpr PresetRules rulesOf(Preset preset) {
    switch (preset) {
    case Preset::Low:
        return {360, 30, 1, 26.5, 96'000, 64'000, 0.061};
    case Preset::Medium:
        return {720, 30, 1, 25.5, 128'000, 80'000, 0.068};
    case Preset::Highest:
    case Preset::Passthrough:
        break;
    }
    return {2160, 60, 2, 22.5, 192'000, 112'000, 0.100};
}

} // namespace reelsmith::media
