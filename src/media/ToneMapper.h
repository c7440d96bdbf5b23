// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Colour.h"
#include "media/Error.h"
#include "media/Handles.h"
#include "media/ToneTable.h"

namespace reelsmith::media {

/// Turns PQ and HLG pictures into BT.709 SDR: 8-bit 4:2:0, limited range. One thread.
class ToneMapper {
public:
    /// `source`: how the pictures are coded. `peakNits`: the brightest light that a PQ source holds (MaxCLL,
    /// or the peak of the display it was mastered on).
    ToneMapper(const ColourTags& source, double peakNits) : m_table(source, peakNits) {}

    /// A new frame (64-byte aligned) tagged with its colours, without times. Takes planar 4:4:4 of 10 to 16
    /// bits and even size; anything else fails as Unsupported.
    Result<FrameHandle> map(const AVFrame& picture) const;

private:
    ToneTable m_table;
};

} // namespace reelsmith::media
