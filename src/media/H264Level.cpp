// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/H264Level.h"

#include <algorithm>
#include <array>

namespace reelsmith::media {

namespace {

/// From 3.0 on: what is smaller plays everywhere all the same. Without 4.0, whose pictures 4.1 has at more
/// than twice the rate, on the same players.
constexpr std::array levels{
    H264Level{30, 1'620, 40'500, 12'500'000},    H264Level{31, 3'600, 108'000, 17'500'000},
    H264Level{32, 5'120, 216'000, 25'000'000},   H264Level{41, 8'192, 245'760, 62'500'000},
    H264Level{42, 8'704, 522'240, 62'500'000},   H264Level{50, 22'080, 589'824, 168'750'000},
    H264Level{51, 36'864, 983'040, 300'000'000}, H264Level{52, 36'864, 2'073'600, 300'000'000},
};

} // namespace

H264Level levelFor(int width, int height, double frameRate) {
    const int macroblocks = ((width + 15) / 16) * ((height + 15) / 16);
    const auto found = std::find_if(levels.begin(), levels.end(), [&](const H264Level& level) {
        return macroblocks <= level.macroblocksPerFrame &&
               macroblocks * frameRate <= level.macroblocksPerSecond;
    });
    return found == levels.end() ? levels.back() : *found;
}

} // namespace reelsmith::media
