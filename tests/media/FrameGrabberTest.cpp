// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include "media/FrameGrabber.h"

#include <stdexcept>

using namespace reelsmith::media;

namespace {

class FrameGrabber : public MovieTest {
protected:
    FrameHandle grab(const std::string& source, double seconds, Size bounds = {500, 500}) const {
        const OpenFile file(source, O_RDONLY);
        auto grabbed = grabFrame(file.descriptor(), seconds, bounds);
        if (!grabbed)
            throw std::runtime_error(grabbed.error().text);
        return std::move(*grabbed);
    }

    /// When the picture was taken that clockPictures() made.
    double timeOf(const FrameHandle& picture) const {
        const auto* pixel =
            picture->data[0] + picture->height / 2 * picture->linesize[0] + picture->width / 2 * 4;
        return (16 + pixel[0] * 219.0 / 255 - 20) / 100;
    }
};

} // namespace

TEST_F(FrameGrabber, TakesTheFirstPictureAtOrAfterTheTimeElseTheLast) {
    const std::string options = "-c:v libx264 -crf 8 -g 10 ";
    for (const std::string name : {"source.mp4", "source.mkv", "source.ts"}) {
        const std::string source = make(name, clockPictures(10, 2) + options);
        for (const auto& [wanted, found] : {std::pair(0.0, 0.0), std::pair(0.002, 0.1), std::pair(0.1, 0.1),
                                            std::pair(1.55, 1.6), std::pair(9.0, 1.9)}) {
            SCOPED_TRACE(name + " " + std::to_string(wanted));
            EXPECT_NEAR(timeOf(grab(source, wanted)), found, 0.02);
        }
    }
    make("whole.mp4", clockPictures(10, 2) + options + "-bf 2");
    EXPECT_NEAR(timeOf(grab(make("cut.mp4", "-ss 0.4 -i whole.mp4 -c copy"), 0)), 0.4, 0.02)
        << "an edit list";
    EXPECT_NEAR(
        timeOf(grab(make("late.mp4", "-itsoffset 1 " + clockPictures(10, 1) + tone("0.1", 2) + options), 0)),
        0, 0.02);
}

TEST_F(FrameGrabber, FitsTheBoundsUprightAndIsNeverEnlarged) {
    struct {
        std::string size, options;
        Size bounds, expected;
        bool isTurned = false;
    } const cases[] = {
        {"1280x720", "", {500, 500}, {500, 282}},
        {"720x1280", "", {500, 500}, {282, 500}},
        {"160x120", "", {500, 500}, {160, 120}},
        {"1280x720", "", {500, 500}, {282, 500}, true},
        {"720x576", "-aspect 16:9", {500, 500}, {500, 282}},
        {"1280x720", "", {100, 30}, {54, 30}},
        {"4000x10", "", {500, 500}, {500, 2}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.size + " " + each.options);
        const std::string source = make(
            "source.mp4", "-f lavfi -i color=red:s=" + each.size +
                              ":r=5:d=0.4,drawbox=w=iw/2:c=blue:t=fill -c:v mpeg4 -q:v 1 " + each.options);
        const FrameHandle picture =
            grab(each.isTurned ? turned(source, {0, 1, -1, 0}) : source, 0, each.bounds);
        EXPECT_EQ(picture->format, AV_PIX_FMT_RGBA);
        EXPECT_NEAR(picture->width, each.expected.width, 2);
        EXPECT_NEAR(picture->height, each.expected.height, 2);
        EXPECT_LE(picture->width, each.bounds.width);
        EXPECT_LE(picture->height, each.bounds.height);
        // What was on the left is on top after a quarter turn clockwise.
        const auto* blue = picture->data[0];
        const auto* red = blue + (picture->height - 1) * picture->linesize[0] + 4 * (picture->width - 1);
        const auto* corner = blue + 4 * (picture->width - 1);
        EXPECT_GT(blue[2], 200);
        EXPECT_GT(red[0], 200);
        EXPECT_LT(red[2], 50);
        EXPECT_EQ(corner[2] > 200, each.isTurned);
        EXPECT_EQ(red[3], 255);
    }
}
