// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ToneMapper.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace reelsmith::media;

namespace {

constexpr double usualPeak = 1000;

ColourTags tags(AVColorTransferCharacteristic transfer, AVColorRange range = AVCOL_RANGE_MPEG) {
    return {AVCOL_PRI_BT2020, transfer, AVCOL_SPC_BT2020_NCL, range};
}

FrameHandle picture(int width, int height, AVPixelFormat format = AV_PIX_FMT_YUV444P16) {
    FrameHandle frame = makeFrame();
    frame->format = format;
    frame->width = width;
    frame->height = height;
    EXPECT_GE(av_frame_get_buffer(frame.get(), 64), 0);
    return frame;
}

std::uint16_t& sample(const FrameHandle& frame, int plane, int x, int y) {
    return reinterpret_cast<std::uint16_t*>(frame->data[plane] + y * frame->linesize[plane])[x];
}

int result(const FrameHandle& frame, int plane, int x, int y) {
    const int shift = plane == 0 ? 0 : 1;
    return frame->data[plane][(y >> shift) * frame->linesize[plane] + (x >> shift)];
}

void fill(const FrameHandle& frame, std::array<int, 3> codes) {
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < frame->height; ++y) {
            for (int x = 0; x < frame->width; ++x)
                sample(frame, plane, x, y) =
                    static_cast<std::uint16_t>(codes[static_cast<std::size_t>(plane)]);
        }
    }
}

/// Y, Cb and Cr that a limited-range BT.2020 picture of this signal becomes.
std::array<int, 3> mapped(const ToneMapper& mapper, double red, double green, double blue) {
    const double y = 0.2627 * red + 0.6780 * green + 0.0593 * blue;
    const FrameHandle frame = picture(2, 2);
    fill(frame, {static_cast<int>(std::lround((16 + 219 * y) * 256)),
                 static_cast<int>(std::lround((128 + 224 * (blue - y) / 1.8814) * 256)),
                 static_cast<int>(std::lround((128 + 224 * (red - y) / 1.4746) * 256))});
    const auto sdr = mapper.map(*frame);
    EXPECT_TRUE(sdr);
    return {result(*sdr, 0, 0, 0), result(*sdr, 1, 0, 0), result(*sdr, 2, 0, 0)};
}

/// Red, green and blue, 0…255, of 8-bit limited BT.709.
std::array<double, 3> rgb(const std::array<int, 3>& codes) {
    const double y = (codes[0] - 16) / 219.0 * 255;
    const double cb = (codes[1] - 128) / 224.0 * 255;
    const double cr = (codes[2] - 128) / 224.0 * 255;
    return {y + 1.5748 * cr, y - 0.1873 * cb - 0.4681 * cr, y + 1.8556 * cb};
}

} // namespace

TEST(ToneMapper, GreysStayNeutralAndInOrderFromBlackToWhite) {
    struct Case {
        std::string what;
        ColourTags colour;
        int black;
        int white;
    };
    const std::vector<Case> cases = {
        {"PQ", tags(AVCOL_TRC_SMPTE2084), 4096, 60160},
        {"HLG", tags(AVCOL_TRC_ARIB_STD_B67), 4096, 60160},
        {"PQ, full range", tags(AVCOL_TRC_SMPTE2084, AVCOL_RANGE_JPEG), 0, 65535},
        {"HLG, full range", tags(AVCOL_TRC_ARIB_STD_B67, AVCOL_RANGE_JPEG), 0, 65535},
        {"PQ in BT.709",
         {AVCOL_PRI_BT709, AVCOL_TRC_SMPTE2084, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG},
         4096,
         60160},
        {"HLG of other white",
         {AVCOL_PRI_SMPTE431, AVCOL_TRC_ARIB_STD_B67, AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_MPEG},
         4096,
         60160},
    };
    constexpr int width = 4096;
    for (const Case& test : cases) {
        const FrameHandle ramp = picture(width, 2);
        fill(ramp, {0, 32768, 32768});
        for (int x = 0; x < width; ++x) {
            const int code = test.black + (test.white - test.black) * x / (width - 1);
            sample(ramp, 0, x, 0) = sample(ramp, 0, x, 1) = static_cast<std::uint16_t>(code);
        }
        const auto sdr = ToneMapper(test.colour, usualPeak).map(*ramp);
        ASSERT_TRUE(sdr) << test.what;
        for (int x = 0; x < width; ++x) {
            ASSERT_EQ(result(*sdr, 1, x, 0), 128) << test.what << " at " << x;
            ASSERT_EQ(result(*sdr, 2, x, 0), 128) << test.what << " at " << x;
            ASSERT_GE(result(*sdr, 0, x, 0), x == 0 ? 16 : result(*sdr, 0, x - 1, 0))
                << test.what << " at " << x;
        }
        EXPECT_EQ(result(*sdr, 0, 0, 0), 16) << test.what;
        EXPECT_EQ(result(*sdr, 0, width - 1, 1), 235) << test.what;
    }
}

TEST(ToneMapper, ReferenceWhiteIsBrightButLeavesRoomForHighlights) {
    constexpr double pq203Nits = 0.5807;
    const int pq =
        mapped(ToneMapper(tags(AVCOL_TRC_SMPTE2084), usualPeak), pq203Nits, pq203Nits, pq203Nits)[0];
    const int hlg = mapped(ToneMapper(tags(AVCOL_TRC_ARIB_STD_B67), usualPeak), 0.75, 0.75, 0.75)[0];
    EXPECT_NEAR(pq, 182, 4);
    EXPECT_NEAR(hlg, pq, 1);
}

TEST(ToneMapper, ABrighterPeakTakesRoomFromTheRest) {
    const auto luma = [](double peakNits, double signal) {
        return mapped(ToneMapper(tags(AVCOL_TRC_SMPTE2084), peakNits), signal, signal, signal)[0];
    };
    constexpr double pq1000Nits = 0.7518;
    EXPECT_GE(luma(1000, pq1000Nits), 232);
    EXPECT_LT(luma(4000, pq1000Nits), 225);
    EXPECT_LT(luma(4000, 0.5), luma(1000, 0.5));
    EXPECT_EQ(luma(0, 1), 235) << "a peak that says nothing is no reason for darkness";
}

TEST(ToneMapper, SaturatedColoursKeepTheirHue) {
    for (const auto transfer : {AVCOL_TRC_SMPTE2084, AVCOL_TRC_ARIB_STD_B67}) {
        const ToneMapper mapper(tags(transfer), usualPeak);
        for (const double level : {0.3, 0.5, 0.7}) {
            for (std::size_t primary = 0; primary < 3; ++primary) {
                std::array<double, 3> signal{};
                signal[primary] = level;
                const auto sdr = rgb(mapped(mapper, signal[0], signal[1], signal[2]));
                const double others = std::max(sdr[(primary + 1) % 3], sdr[(primary + 2) % 3]);
                EXPECT_GT(sdr[primary], 30) << "primary " << primary << " at " << level;
                EXPECT_LT(others, 0.15 * sdr[primary] + 4) << "primary " << primary << " at " << level;
            }
        }
    }
}

TEST(ToneMapper, TheDepthOfTheSourceDoesNotMatter) {
    const ToneMapper mapper(tags(AVCOL_TRC_ARIB_STD_B67), usualPeak);
    const FrameHandle deep = picture(64, 4);
    const FrameHandle shallow = picture(64, 4, AV_PIX_FMT_YUV444P10);
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 64; ++x) {
                const int code = 200 + x * 9 + y * 31 + plane * 57;
                sample(shallow, plane, x, y) = static_cast<std::uint16_t>(code);
                sample(deep, plane, x, y) = static_cast<std::uint16_t>(code << 6);
            }
        }
    }
    const auto left = mapper.map(*deep);
    const auto right = mapper.map(*shallow);
    ASSERT_TRUE(left && right);
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 64; ++x)
                ASSERT_EQ(result(*left, plane, x, y), result(*right, plane, x, y));
        }
    }
}

TEST(ToneMapper, APixelsPlaceDoesNotMatter) {
    const ToneMapper mapper(tags(AVCOL_TRC_SMPTE2084), usualPeak);
    const FrameHandle frame = picture(274, 6);
    unsigned value = 1;
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < frame->height; ++y) {
            for (int x = 0; x < frame->width; ++x, value = value * 1664525 + 1013904223)
                sample(frame, plane, x, y) = static_cast<std::uint16_t>(value >> 16);
        }
    }
    const auto whole = mapper.map(*frame);
    ASSERT_TRUE(whole);
    const FrameHandle block = picture(2, 2);
    for (int y = 0; y < frame->height; y += 2) {
        for (int x = 0; x < frame->width; x += 2) {
            for (int plane = 0; plane < 3; ++plane) {
                for (int i = 0; i < 4; ++i)
                    sample(block, plane, i % 2, i / 2) = sample(frame, plane, x + i % 2, y + i / 2);
            }
            const auto alone = mapper.map(*block);
            ASSERT_TRUE(alone);
            for (int i = 0; i < 4; ++i) {
                for (int plane = 0; plane < 3; ++plane)
                    ASSERT_EQ(result(*whole, plane, x + i % 2, y + i / 2),
                              result(*alone, plane, i % 2, i / 2))
                        << "plane " << plane << " at " << x << ", " << y;
            }
        }
    }
}

TEST(ToneMapper, TheResultIsTaggedAsWhatItIs) {
    const FrameHandle frame = picture(6, 4);
    fill(frame, {30000, 32768, 32768});
    const auto sdr = ToneMapper(tags(AVCOL_TRC_SMPTE2084), usualPeak).map(*frame);
    ASSERT_TRUE(sdr);
    EXPECT_EQ((*sdr)->format, AV_PIX_FMT_YUV420P);
    EXPECT_EQ((*sdr)->width, 6);
    EXPECT_EQ((*sdr)->height, 4);
    EXPECT_EQ((*sdr)->color_primaries, AVCOL_PRI_BT709);
    EXPECT_EQ((*sdr)->color_trc, AVCOL_TRC_BT709);
    EXPECT_EQ((*sdr)->colorspace, AVCOL_SPC_BT709);
    EXPECT_EQ((*sdr)->color_range, AVCOL_RANGE_MPEG);
}

TEST(ToneMapper, OtherPicturesAreRefused) {
    const ToneMapper mapper(tags(AVCOL_TRC_SMPTE2084), usualPeak);
    EXPECT_FALSE(mapper.map(*picture(3, 2)));
    EXPECT_FALSE(mapper.map(*picture(2, 3)));
    EXPECT_FALSE(mapper.map(*picture(2, 2, AV_PIX_FMT_YUV420P10)));
    EXPECT_FALSE(mapper.map(*picture(2, 2, AV_PIX_FMT_GBRP16)));
}
