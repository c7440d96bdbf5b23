// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Orienter.h"

#include <cstring>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

using namespace reelsmith::media;

namespace {

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

FrameHandle oriented(const FrameHandle& frame, Orientation orientation) {
    auto result = orient(FrameHandle(av_frame_clone(frame.get())), orientation);
    EXPECT_TRUE(result) << result.error().text;
    return std::move(*result);
}

/// Whether the pixel at (x, y) of one frame is that at (toX, toY) of another.
bool isSame(const AVFrame& from, int x, int y, const AVFrame& to, int toX, int toY, int plane) {
    const int bytes = from.format == AV_PIX_FMT_RGBA ? 4 : 1;
    return std::memcmp(from.data[plane] + y * from.linesize[plane] + x * bytes,
                       to.data[plane] + toY * to.linesize[plane] + toX * bytes,
                       static_cast<std::size_t>(bytes)) == 0;
}

bool areSame(const AVFrame& left, const AVFrame& right) {
    if (left.width != right.width || left.height != right.height)
        return false;
    for (int y = 0; y < left.height; ++y) {
        for (int x = 0; x < left.width; ++x) {
            if (!isSame(left, x, y, right, x, y, 0))
                return false;
        }
    }
    return true;
}

/// Where the pixel (x, y) of a picture of this size belongs.
std::pair<int, int> place(Orientation orientation, int x, int y, int width, int height) {
    switch (orientation) {
    case Orientation::Identity:
        return {x, y};
    case Orientation::Turn90:
        return {height - 1 - y, x};
    case Orientation::Turn180:
        return {width - 1 - x, height - 1 - y};
    case Orientation::Turn270:
        return {y, width - 1 - x};
    case Orientation::Mirror:
        return {width - 1 - x, y};
    case Orientation::MirrorTurn90:
        return {height - 1 - y, width - 1 - x};
    case Orientation::MirrorTurn180:
        return {x, height - 1 - y};
    case Orientation::MirrorTurn270:
        return {y, x};
    }
    return {};
}

} // namespace

TEST(Orienter, EveryPixelGetsToItsPlace) {
    const std::vector<std::pair<int, int>> sizes = {{2, 2},    {16, 8}, {70, 38},  {33, 17},
                                                    {130, 66}, {1, 9},  {200, 150}};
    for (const AVPixelFormat format : {AV_PIX_FMT_YUV420P, AV_PIX_FMT_GRAY8, AV_PIX_FMT_RGBA}) {
        for (const auto& [width, height] : sizes) {
            const FrameHandle source = picture(format, width, height);
            for (int i = 0; i < 8; ++i) {
                const auto orientation = static_cast<Orientation>(i);
                const FrameHandle result = oriented(source, orientation);
                for (int plane = 0; plane < 3 && source->data[plane]; ++plane) {
                    const int planeWidth = plane == 0 ? width : (width + 1) / 2;
                    const int planeHeight = plane == 0 ? height : (height + 1) / 2;
                    for (int y = 0; y < planeHeight; ++y) {
                        for (int x = 0; x < planeWidth; ++x) {
                            const auto [toX, toY] = place(orientation, x, y, planeWidth, planeHeight);
                            ASSERT_TRUE(isSame(*source, x, y, *result, toX, toY, plane))
                                << "orientation " << i << ", " << width << "x" << height << ", plane "
                                << plane;
                        }
                    }
                }
            }
        }
    }
}

TEST(Orienter, FourTurnsOrTwoMirrorsAreNone) {
    const FrameHandle source = picture(AV_PIX_FMT_YUV420P, 70, 38);
    for (const Orientation turn : {Orientation::Turn90, Orientation::Turn270}) {
        FrameHandle result = oriented(source, turn);
        EXPECT_FALSE(areSame(*source, *oriented(result, turn)));
        for (int i = 0; i < 3; ++i)
            result = oriented(result, turn);
        EXPECT_TRUE(areSame(*source, *result));
    }
    for (const Orientation mirror :
         {Orientation::Mirror, Orientation::MirrorTurn90, Orientation::MirrorTurn180,
          Orientation::MirrorTurn270, Orientation::Turn180})
        EXPECT_TRUE(areSame(*source, *oriented(oriented(source, mirror), mirror)));
}

TEST(Orienter, AMirroredTurnIsAMirrorThenATurn) {
    const FrameHandle source = picture(AV_PIX_FMT_RGBA, 33, 17);
    const FrameHandle mirrored = oriented(source, Orientation::Mirror);
    for (int turn = 0; turn < 4; ++turn)
        EXPECT_TRUE(areSame(*oriented(mirrored, static_cast<Orientation>(turn)),
                            *oriented(source, static_cast<Orientation>(4 + turn))));
}

TEST(Orienter, IdentityHandsBackTheVeryFrame) {
    FrameHandle frame = picture(AV_PIX_FMT_YUV420P, 16, 16);
    const AVFrame* given = frame.get();
    const auto result = orient(std::move(frame), Orientation::Identity);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->get(), given);
}

TEST(Orienter, TheFramesPropertiesComeAlong) {
    FrameHandle frame = picture(AV_PIX_FMT_YUV420P, 16, 8);
    frame->pts = 1234;
    frame->colorspace = AVCOL_SPC_BT709;
    frame->sample_aspect_ratio = {4, 3};
    const FrameHandle result = oriented(frame, Orientation::Turn90);
    EXPECT_EQ(result->pts, 1234);
    EXPECT_EQ(result->colorspace, AVCOL_SPC_BT709);
    EXPECT_EQ(result->sample_aspect_ratio.num, 3);
    EXPECT_EQ(result->sample_aspect_ratio.den, 4);
}

TEST(Orienter, PicturesThatCannotBeTurnedAreRefused) {
    for (const AVPixelFormat format : {AV_PIX_FMT_YUV422P, AV_PIX_FMT_YUV420P10, AV_PIX_FMT_NV12}) {
        const auto result = orient(picture(format, 16, 16), Orientation::Turn90);
        ASSERT_FALSE(result) << format;
        EXPECT_EQ(result.error().code, ErrorCode::Unsupported);
    }
}
