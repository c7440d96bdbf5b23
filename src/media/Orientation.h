// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

namespace reelsmith::media {

/// The eight ways to lay a rectangle over a rectangle: mirrored left to right or not, then turned clockwise.
enum class Orientation : std::uint8_t {
    Identity,
    Turn90,
    Turn180,
    Turn270,
    Mirror,
    MirrorTurn90,  ///< mirrored along the diagonal that rises to the right
    MirrorTurn180, ///< upside down
    MirrorTurn270, ///< mirrored along the diagonal that falls to the right
};

/// Whether width and height change places.
constexpr bool swapsSides(Orientation orientation) {
    return static_cast<int>(orientation) % 2 == 1;
}

/// a, b, c, d with entries -1, 0 and 1: the pixel at (x, y), y pointing down, goes to (a x + c y, b x + d y),
/// apart from the shift that brings the picture back to the origin.
std::array<double, 4> transformOf(Orientation orientation);

/// What a display matrix in libavutil's form (a b u, c d v, x y w; 16.16 fixed point) asks for. Scale and
/// shift do not count. A matrix that is not near any of the eight, such as one that shears or flattens, says
/// nothing: Identity.
Orientation orientationFromDisplayMatrix(const std::int32_t* matrix);

} // namespace reelsmith::media
