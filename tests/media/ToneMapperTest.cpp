// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ToneMapper.h"

#include "media/Gamut.h"
#include "media/TransferFunctions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <string>

using namespace reelsmith::media;

namespace {

constexpr double usualPeak = 1000;

ColourTags tags(AVColorTransferCharacteristic transfer, AVColorRange range = AVCOL_RANGE_MPEG) {
    return {AVCOL_PRI_BT2020, transfer, AVCOL_SPC_BT2020_NCL, range};
}

std::uint16_t& sample(const FrameHandle& frame, int plane, int x, int y) {
    return reinterpret_cast<std::uint16_t*>(frame->data[plane] + y * frame->linesize[plane])[x];
}

FrameHandle picture(int width, int height, const std::function<long(int plane, int x, int y)>& code,
                    AVPixelFormat format = AV_PIX_FMT_YUV444P16) {
    FrameHandle frame = makeFrame();
    frame->format = format;
    frame->width = width;
    frame->height = height;
    EXPECT_GE(av_frame_get_buffer(frame.get(), 64), 0);
    for (int i = 0; i < 3 * width * height; ++i) {
        const int plane = i / (width * height);
        const int x = i % width;
        const int y = i / width % height;
        sample(frame, plane, x, y) = static_cast<std::uint16_t>(code(plane, x, y));
    }
    return frame;
}

/// The codes that the pixel at (x, y) has become.
std::array<int, 3> pixel(const FrameHandle& sdr, int x, int y) {
    const auto chroma = [&](int plane) { return sdr->data[plane][y / 2 * sdr->linesize[plane] + x / 2]; };
    return {sdr->data[0][y * sdr->linesize[0] + x], chroma(1), chroma(2)};
}

/// Y, Cb and Cr that a limited-range BT.2020 picture of this signal becomes.
std::array<int, 3> mapped(const ToneMapper& mapper, double red, double green, double blue) {
    const double y = 0.2627 * red + 0.6780 * green + 0.0593 * blue;
    const std::array<double, 3> codes = {16 + 219 * y, 128 + 224 * (blue - y) / 1.8814,
                                         128 + 224 * (red - y) / 1.4746};
    const auto code = [&](int plane, int, int) {
        return std::lround(codes[static_cast<std::size_t>(plane)] * 256);
    };
    return pixel(mapper.map(*picture(2, 2, code)).value(), 0, 0);
}

/// The luma of a grey.
int luma(const ToneMapper& mapper, double signal) {
    return mapped(mapper, signal, signal, signal)[0];
}

/// Red, green and blue, 0…255, of 8-bit limited BT.709.
std::array<double, 3> rgb(const std::array<int, 3>& codes) {
    const double y = (codes[0] - 16) / 219.0 * 255;
    const double cb = (codes[1] - 128) / 224.0 * 255;
    const double cr = (codes[2] - 128) / 224.0 * 255;
    return {y + 1.5748 * cr, y - 0.1873 * cb - 0.4681 * cr, y + 1.8556 * cb};
}

const ToneMapper pqMapper(tags(AVCOL_TRC_SMPTE2084), usualPeak);
const ToneMapper hlgMapper(tags(AVCOL_TRC_ARIB_STD_B67), usualPeak);

} // namespace

TEST(ToneMapper, GreysStayNeutralAndInOrderFromBlackToWhite) {
    struct {
        std::string what;
        ColourTags colour;
        int black, white;
    } const cases[] = {
        {"PQ", tags(AVCOL_TRC_SMPTE2084), 4096, 60160},
        {"HLG", tags(AVCOL_TRC_ARIB_STD_B67), 4096, 60160},
        {"PQ, full range", tags(AVCOL_TRC_SMPTE2084, AVCOL_RANGE_JPEG), 0, 65535},
        {"HLG, full range", tags(AVCOL_TRC_ARIB_STD_B67, AVCOL_RANGE_JPEG), 0, 65535},
        {"PQ in BT.709", {AVCOL_PRI_BT709, AVCOL_TRC_SMPTE2084, AVCOL_SPC_BT709}, 4096, 60160},
        {"other white", {AVCOL_PRI_SMPTE431, AVCOL_TRC_ARIB_STD_B67, AVCOL_SPC_BT2020_NCL}, 4096, 60160},
        {"PQ in P3", {AVCOL_PRI_SMPTE432, AVCOL_TRC_SMPTE2084, AVCOL_SPC_BT2020_NCL}, 4096, 60160},
        {"old primaries", {AVCOL_PRI_SMPTE170M, AVCOL_TRC_SMPTE2084, AVCOL_SPC_BT2020_NCL}, 4096, 60160},
        {"no primaries", {AVCOL_PRI_UNSPECIFIED, AVCOL_TRC_SMPTE2084, AVCOL_SPC_BT2020_NCL}, 4096, 60160},
    };
    constexpr int width = 4096;
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        const FrameHandle ramp = picture(width, 2, [&](int plane, int x, int) {
            return plane > 0 ? 32768 : test.black + (test.white - test.black) * x / (width - 1);
        });
        const FrameHandle sdr = ToneMapper(test.colour, usualPeak).map(*ramp).value();
        for (int x = 0; x < width; ++x) {
            const auto [y, cb, cr] = pixel(sdr, x, 0);
            ASSERT_TRUE(cb == 128 && cr == 128) << "at " << x;
            ASSERT_GE(y, x == 0 ? 16 : pixel(sdr, x - 1, 0)[0]) << "at " << x;
        }
        EXPECT_EQ(pixel(sdr, 0, 0)[0], 16);
        EXPECT_EQ(pixel(sdr, width - 1, 1)[0], 235);
        EXPECT_EQ(sdr->format, AV_PIX_FMT_YUV420P);
        EXPECT_EQ(sdr->color_primaries, AVCOL_PRI_BT709);
        EXPECT_EQ(sdr->color_trc, AVCOL_TRC_BT709);
        EXPECT_EQ(sdr->colorspace, AVCOL_SPC_BT709);
        EXPECT_EQ(sdr->color_range, AVCOL_RANGE_MPEG);
    }
}

TEST(ToneMapper, ReferenceWhiteIsBrightButLeavesRoomForHighlights) {
    constexpr double pq203Nits = 0.5807;
    EXPECT_NEAR(luma(pqMapper, pq203Nits), 182, 4);
    EXPECT_NEAR(luma(hlgMapper, 0.75), luma(pqMapper, pq203Nits), 1);
}

TEST(ToneMapper, ABrighterPeakTakesRoomFromTheRest) {
    const ToneMapper brighter(tags(AVCOL_TRC_SMPTE2084), 4000);
    constexpr double pq1000Nits = 0.7518;
    EXPECT_GE(luma(pqMapper, pq1000Nits), 232);
    EXPECT_LT(luma(brighter, pq1000Nits), 225);
    EXPECT_LT(luma(brighter, 0.5), luma(pqMapper, 0.5));
    EXPECT_EQ(luma(ToneMapper(tags(AVCOL_TRC_SMPTE2084), 0), 1), 235)
        << "a peak that says nothing is no reason for darkness";
}

TEST(ToneMapper, SaturatedColoursKeepTheirHue) {
    for (const ToneMapper* mapper : {&pqMapper, &hlgMapper}) {
        for (const double level : {0.3, 0.5, 0.7}) {
            for (std::size_t primary = 0; primary < 3; ++primary) {
                std::array<double, 3> signal{};
                signal[primary] = level;
                const auto sdr = rgb(mapped(*mapper, signal[0], signal[1], signal[2]));
                const double others = std::max(sdr[(primary + 1) % 3], sdr[(primary + 2) % 3]);
                EXPECT_GT(sdr[primary], 30) << "primary " << primary << " at " << level;
                EXPECT_LT(others, 0.15 * sdr[primary] + 4) << "primary " << primary << " at " << level;
            }
        }
    }
}

TEST(ToneMapper, NeitherThePlaceNorTheDepthOfAPixelMatters) {
    unsigned value = 1;
    const FrameHandle whole = picture(274, 6, [&](int, int, int) {
        value = value * 1664525 + 1013904223;
        return value >> 16;
    });
    const auto codesAt = [&](int left, int top, int shift) {
        return [&whole, left, top, shift](int plane, int x, int y) {
            return sample(whole, plane, left + x, top + y) >> shift;
        };
    };
    const FrameHandle shallow = picture(274, 6, codesAt(0, 0, 6), AV_PIX_FMT_YUV444P10);
    const FrameHandle deep =
        picture(274, 6, [&](int plane, int x, int y) { return sample(shallow, plane, x, y) << 6; });
    const FrameHandle expected = pqMapper.map(*whole).value();
    const FrameHandle fromShallow = hlgMapper.map(*shallow).value();
    const FrameHandle fromDeep = hlgMapper.map(*deep).value();
    for (int y = 0; y < whole->height; ++y) {
        for (int x = 0; x < whole->width; ++x) {
            const FrameHandle alone = pqMapper.map(*picture(2, 2, codesAt(x / 2 * 2, y / 2 * 2, 0))).value();
            ASSERT_EQ(pixel(alone, x % 2, y % 2), pixel(expected, x, y)) << x << ", " << y;
            ASSERT_EQ(pixel(fromShallow, x, y), pixel(fromDeep, x, y)) << x << ", " << y;
        }
    }
}

TEST(ToneMapper, OtherPicturesAreRefused) {
    const auto black = [](int, int, int) { return 0; };
    EXPECT_FALSE(pqMapper.map(*picture(3, 2, black)));
    EXPECT_FALSE(pqMapper.map(*picture(2, 3, black)));
    EXPECT_FALSE(pqMapper.map(*picture(2, 2, black, AV_PIX_FMT_GBRP16)));
    const FrameHandle folded = picture(2, 2, black);
    folded->format = AV_PIX_FMT_YUV420P10;
    EXPECT_FALSE(pqMapper.map(*folded));
}

TEST(TransferFunctions, PqAndHlgAreThoseOfTheStandard) {
    EXPECT_EQ(pqToNits(-0.1), 0);
    EXPECT_EQ(pqToNits(0), 0);
    EXPECT_NEAR(pqToNits(0.5081), 100, 0.1);
    EXPECT_NEAR(pqToNits(0.5807), 203, 0.2);
    EXPECT_NEAR(pqToNits(0.7518), 1000, 1);
    EXPECT_NEAR(pqToNits(1), 10000, 1e-6);
    EXPECT_EQ(hlgToSceneLight(-0.1), 0);
    EXPECT_NEAR(hlgToSceneLight(0.5), 1.0 / 12, 1e-9);
    EXPECT_NEAR(hlgToSceneLight(1), 1, 1e-6);
    const double referenceWhite = hlgToSceneLight(0.75);
    EXPECT_NEAR(referenceWhite * hlgSceneToNits(referenceWhite), 203, 1);
    EXPECT_NEAR(hlgSceneToNits(1), hlgPeakNits, 1e-6);
}

TEST(Gamut, Bt2020IsConvertedAsInItuRBt2087) {
    const LightMatrix matrix = gamutToBt709(AVCOL_PRI_BT2020);
    const LightMatrix expected{
        {{1.6605, -0.5876, -0.0728}, {-0.1246, 1.1329, -0.0083}, {-0.0182, -0.1006, 1.1187}}};
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_NEAR(matrix[i / 3][i % 3], expected[i / 3][i % 3], 1e-4) << i;
    EXPECT_NEAR(luminanceWeights(AVCOL_PRI_BT2020)[1], 0.6780, 1e-4);
}
