// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Orientation.h"

#include <gtest/gtest.h>
#include <limits>

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
    struct {
        const char* what;
        std::int32_t a, b, c, d;
        Orientation expected;
    } const cases[] = {
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
    for (const auto& test : cases)
        EXPECT_EQ(fromMatrix(test.a, test.b, test.c, test.d), test.expected) << test.what;
}

TEST(Orientation, ItsTransformLeadsBackToIt) {
    for (int i = 0; i < 8; ++i) {
        const auto orientation = static_cast<Orientation>(i);
        const auto [a, b, c, d] = transformOf(orientation);
        const auto fixed = [](double entry) { return static_cast<std::int32_t>(entry) * one; };
        EXPECT_EQ(fromMatrix(fixed(a), fixed(b), fixed(c), fixed(d)), orientation);
        EXPECT_EQ(swapsSides(orientation), a == 0);
    }
}
