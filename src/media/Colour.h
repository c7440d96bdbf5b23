// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

extern "C" {
#include <libavcodec/codec_par.h>
#include <libavutil/frame.h>
#include <libavutil/pixfmt.h>
}

namespace reelsmith::media {

/// How the numbers of a picture stand for colours (ITU-T H.273).
struct ColourTags {
    AVColorPrimaries primaries = AVCOL_PRI_BT709;
    AVColorTransferCharacteristic transfer = AVCOL_TRC_BT709;
    AVColorSpace matrix = AVCOL_SPC_BT709;
    AVColorRange range = AVCOL_RANGE_MPEG;
    bool operator==(const ColourTags&) const = default;
};

/// What a picture's colours are and what they become.
struct ColourPlan {
    ColourTags source; ///< what was left unsaid filled in, by the size of the picture
    ColourTags result; ///< always SDR and limited range
    bool needsToneMapping = false;
    bool operator==(const ColourPlan&) const = default;
};

/// Whether there are colours that BT.709 does not have.
bool isWideGamut(AVColorPrimaries primaries);

/// Some containers and decoders hand on whatever numbers they find. One that FFmpeg has no name for means
/// nothing, and has no place in an enumeration of C++: it becomes "unspecified".
void dropUnnamedColours(AVCodecParameters& track);
void dropUnnamedColours(AVFrame& frame);

/// What a track says of its colours, of which none may be without a name.
ColourTags coloursOf(const AVCodecParameters& track);

/// What is left unsaid becomes what `told` says.
void fillInColours(AVCodecParameters& track, const ColourTags& told);
void fillInColours(AVFrame& frame, const ColourTags& told);

/// Standard-definition and HD colours are kept as they are and tagged; PQ, HLG and wide gamut become BT.709.
ColourPlan planColour(const AVFrame& frame);

} // namespace reelsmith::media
