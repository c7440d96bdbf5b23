// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Orientation.h"

#include "media/Orienter.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <utility>
#include <vector>

using namespace reelsmith::media;

namespace {

constexpr std::int32_t one = 1 << 16;
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

Orientation fromMatrix(std::int32_t a, std::int32_t b, std::int32_t c, std::int32_t d) {
    const std::array<std::int32_t, 9> matrix{a, b, 0, c, d, 0, 77 * one, -5 * one, 1 << 30};
    return orientationFromDisplayMatrix(matrix.data());
}

/// A picture whose bytes all differ from their neighbours.
FrameHandle picture(AVPixelFormat format, int width, int height) {
    FrameHandle frame = makeFrame();
    frame->format = format;
    frame->width = width;
    frame->height = height;
    EXPECT_GE(av_frame_get_buffer(frame.get(), 64), 0);
    unsigned value = 1;
    for (int plane = 0; plane < 3 && frame->data[plane]; ++plane) {
        const int rows = plane == 0 ? height : (height + 1) / 2;
        for (int i = 0; i < rows * frame->linesize[plane]; ++i, value = value * 1664525 + 1013904223)
            frame->data[plane][i] = static_cast<std::uint8_t>(value >> 24);
    }
    return frame;
}

/// Whether each pixel of a plane has got to its place; of a plane of this size before.
bool isTurned(const AVFrame& from, const AVFrame& to, Orientation orientation, int plane, int width,
              int height) {
    const auto [a, b, c, d] = transformOf(orientation);
    const std::ptrdiff_t bytes = from.format == AV_PIX_FMT_RGBA ? 4 : 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto toX = static_cast<int>(a * x + c * y) + (a < 0 ? width - 1 : c < 0 ? height - 1 : 0);
            const auto toY = static_cast<int>(b * x + d * y) + (b < 0 ? width - 1 : d < 0 ? height - 1 : 0);
            if (std::memcmp(from.data[plane] + y * from.linesize[plane] + x * bytes,
                            to.data[plane] + toY * to.linesize[plane] + toX * bytes,
                            static_cast<std::size_t>(bytes)) != 0)
                return false;
        }
    }
    return true;
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

TEST(Orienter, EveryPixelGetsToItsPlace) {
    const std::vector<std::pair<int, int>> sizes = {{2, 2},    {16, 8}, {70, 38},  {33, 17},
                                                    {130, 66}, {1, 9},  {200, 150}};
    for (const AVPixelFormat format : {AV_PIX_FMT_YUV420P, AV_PIX_FMT_GRAY8, AV_PIX_FMT_RGBA}) {
        for (const auto& [width, height] : sizes) {
            const FrameHandle source = picture(format, width, height);
            source->pts = 1234;
            source->colorspace = AVCOL_SPC_BT709;
            for (int i = 0; i < 8; ++i) {
                const auto orientation = static_cast<Orientation>(i);
                const auto result = orient(FrameHandle(av_frame_clone(source.get())), orientation);
                ASSERT_TRUE(result) << result.error().text;
                EXPECT_EQ((*result)->pts, 1234);
                EXPECT_EQ((*result)->colorspace, AVCOL_SPC_BT709);
                EXPECT_EQ((*result)->width, swapsSides(orientation) ? height : width);
                for (int plane = 0; plane < 3 && source->data[plane]; ++plane)
                    ASSERT_TRUE(isTurned(*source, **result, orientation, plane,
                                         plane == 0 ? width : (width + 1) / 2,
                                         plane == 0 ? height : (height + 1) / 2))
                        << "orientation " << i << ", " << width << "x" << height << ", plane " << plane;
            }
        }
    }
}

TEST(Orienter, PicturesThatCannotBeTurnedAreRefused) {
    for (const AVPixelFormat format : {AV_PIX_FMT_YUV422P, AV_PIX_FMT_YUV420P10, AV_PIX_FMT_NV12}) {
        const auto result = orient(picture(format, 16, 16), Orientation::Turn90);
        ASSERT_FALSE(result) << format;
        EXPECT_EQ(result.error().code, ErrorCode::Unsupported);
    }
}
