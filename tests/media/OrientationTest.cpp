// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Orientation.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <vector>

extern "C" {
#include <libavutil/display.h>
}

using namespace reelsmith::media;

namespace {

constexpr std::int32_t one = 1 << 16;
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

Orientation fromMatrix(std::int32_t a, std::int32_t b, std::int32_t c, std::int32_t d) {
    const std::array<std::int32_t, 9> matrix{a, b, 0, c, d, 0, 77 * one, -5 * one, 1 << 30};
    return orientationFromDisplayMatrix(matrix.data());
}

} // namespace

TEST(Orientation, TheMatrixDecidesFlipsIncluded) {
    struct Case {
        const char* what;
        std::int32_t a, b, c, d;
        Orientation expected;
    };
    const std::vector<Case> cases = {
        {"identity", one, 0, 0, one, Orientation::Identity},
        {"a phone held upright", 0, one, -one, 0, Orientation::Turn90},
        {"upside down", -one, 0, 0, -one, Orientation::Turn180},
        {"held upright the other way", 0, -one, one, 0, Orientation::Turn270},
        {"front camera", -one, 0, 0, one, Orientation::Mirror},
        {"front camera, turned", 0, -one, -one, 0, Orientation::MirrorTurn90},
        {"flipped", one, 0, 0, -one, Orientation::MirrorTurn180},
        {"transposed", 0, one, one, 0, Orientation::MirrorTurn270},
        {"scaled unevenly", 0, 2 * one, -one / 3, 0, Orientation::Turn90},
        {"scaled to the limits", 0, most, least, 0, Orientation::Turn90},
        {"10 degrees off", 64000, 11000, -11000, 64000, Orientation::Identity},
        {"80 degrees", 11000, 64000, -64000, 11000, Orientation::Turn90},
        {"45 degrees", one, one, -one, one, Orientation::Identity},
        {"nothing", 0, 0, 0, 0, Orientation::Identity},
        {"flattened", one, 0, one, 0, Orientation::Identity},
        {"half missing", 0, one, 0, 0, Orientation::Identity},
        {"sheared", 0, one, -one, one, Orientation::Identity},
    };
    for (const Case& test : cases)
        EXPECT_EQ(fromMatrix(test.a, test.b, test.c, test.d), test.expected) << test.what;
}

TEST(Orientation, LibavutilsOwnRotationsAreRead) {
    std::array<std::int32_t, 9> matrix{};
    for (int quarters = 0; quarters < 4; ++quarters) {
        av_display_rotation_set(matrix.data(), 90.0 * quarters);
        EXPECT_EQ(orientationFromDisplayMatrix(matrix.data()), static_cast<Orientation>(quarters));
        av_display_matrix_flip(matrix.data(), 1, 0);
        EXPECT_GE(static_cast<int>(orientationFromDisplayMatrix(matrix.data())), 4);
    }
}

TEST(Orientation, ItsTransformLeadsBackToIt) {
    for (int i = 0; i < 8; ++i) {
        const auto orientation = static_cast<Orientation>(i);
        const auto transform = transformOf(orientation);
        std::array<std::int32_t, 4> fixed{};
        for (std::size_t j = 0; j < 4; ++j)
            fixed[j] = static_cast<std::int32_t>(transform[j]) * one;
        EXPECT_EQ(fromMatrix(fixed[0], fixed[1], fixed[2], fixed[3]), orientation);
        EXPECT_EQ(swapsSides(orientation), transform[0] == 0);
    }
}
