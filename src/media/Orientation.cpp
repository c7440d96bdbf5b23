// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Orientation.h"

#include <cmath>

namespace reelsmith::media {

namespace {

constexpr std::array<std::array<double, 4>, 8> transforms{{
    {1, 0, 0, 1},
    {0, 1, -1, 0},
    {-1, 0, 0, -1},
    {0, -1, 1, 0},
    {-1, 0, 0, 1},
    {0, -1, -1, 0},
    {1, 0, 0, -1},
    {0, 1, 1, 0},
}};

/// cos 20°: how near each axis has to come to where an orientation takes it.
constexpr double near = 0.94;

} // namespace

std::array<double, 4> transformOf(Orientation orientation) {
    return transforms[static_cast<std::size_t>(orientation)];
}

Orientation orientationFromDisplayMatrix(const std::int32_t* matrix) {
    const std::array<double, 2> right{static_cast<double>(matrix[0]), static_cast<double>(matrix[1])};
    const std::array<double, 2> down{static_cast<double>(matrix[3]), static_cast<double>(matrix[4])};
    const double rightLength = std::hypot(right[0], right[1]);
    const double downLength = std::hypot(down[0], down[1]);
    for (std::size_t i = 0; i < transforms.size(); ++i) {
        const auto& [a, b, c, d] = transforms[i];
        if (right[0] * a + right[1] * b > near * rightLength && down[0] * c + down[1] * d > near * downLength)
            return static_cast<Orientation>(i);
    }
    return Orientation::Identity;
}

} // namespace reelsmith::media
