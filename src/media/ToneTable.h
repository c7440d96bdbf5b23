// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Colour.h"

#include <cstdint>
#include <vector>

namespace reelsmith::media {

/// What becomes of each HDR colour in SDR: a grid over the cube of red, green and blue signals, with the
/// 8-bit limited BT.709 Y, Cb and Cr at its nodes. Greys lie on the diagonals of its cells, so that no
/// interpolation tints them.
///
/// Light is decoded with 100 nits as 1, brought into BT.709's primaries, compressed by a filmic curve over
/// the strongest of red, green and blue, all three alike so that the hue stays, and encoded for an SDR
/// display.
class ToneTable {
public:
    static constexpr int cells = 32;            ///< along each axis
    static constexpr int whiteNode = 27;        ///< where a signal is 1; HLG goes on above
    static constexpr std::uint32_t redStep = 1; ///< from a node to the next, in entries
    static constexpr std::uint32_t greenStep = cells + 1;
    static constexpr std::uint32_t blueStep = greenStep * greenStep;

    /// An entry holds Y, Cb and Cr in units of 1/32, in three fields from the lowest bits up. They have room
    /// for being multiplied by weights that add up to 256, all three by one multiplication.
    static constexpr int fieldBits = 21;
    static constexpr int fractionBits = 5;

    /// `source`: PQ or HLG; its matrix and range do not count here. `peakNits`: the brightest light to expect
    /// in PQ; HLG has its own.
    ToneTable(const ColourTags& source, double peakNits);

    const std::uint64_t* entries() const { return m_entries.data(); }

private:
    std::vector<std::uint64_t> m_entries;
};

} // namespace reelsmith::media
