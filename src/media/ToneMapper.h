// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Colour.h"
#include "media/Error.h"
#include "media/Handles.h"
#include "media/ToneTable.h"

#include <cstdint>

namespace reelsmith::media {

/// Turns PQ and HLG pictures into BT.709 SDR: 8-bit 4:2:0, limited range. One thread.
class ToneMapper {
public:
    /// `source`: how the pictures are coded. `peakNits`: the brightest light that a PQ source holds (MaxCLL,
    /// or the peak of the display it was mastered on).
    ToneMapper(const ColourTags& source, double peakNits);

    /// A new frame (64-byte aligned) tagged with its colours, without times. Takes planar 4:4:4 of 10, 12 or
    /// 16 bits and even size; anything else fails as Unsupported.
    Result<FrameHandle> map(const AVFrame& picture) const;

    /// How 16-bit Y, Cb and Cr become red, green and blue; factors in 2^-16.
    struct Decoding {
        explicit Decoding(const ColourTags& source);

        std::int16_t black;    ///< of Y, halved
        std::int16_t fromLuma; ///< of Y, halved and less black
        std::int16_t redFromCr;
        std::int16_t greenFromCb;
        std::int16_t greenFromCr;
        std::int16_t blueFromCb;
    };

private:
    Decoding m_decoding;
    ToneTable m_table;
};

} // namespace reelsmith::media
