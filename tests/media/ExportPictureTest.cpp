// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include <array>
#include <cmath>
#include <sstream>

using namespace reelsmith::media;

namespace {

using ExportPicture = MovieTest;

/// One second of a picture whose planes are expressions in X, Y, N and T.
std::string picture(const std::string& size, const std::string& luma, const std::string& options,
                    const std::string& blueness = "128") {
    return "-f lavfi -i \"nullsrc=s=" + size + ":r=10:d=0.5,geq=lum='" + luma + "':cb='" + blueness +
           "':cr=128,format=yuv420p\" " + options;
}

/// The quarters of a picture, row by row, each by the digit that quarters() gave it.
std::string quartersOf(const Picture& picture) {
    std::string found;
    for (const double top : {0.0, 0.5}) {
        for (const double left : {0.0, 0.5}) {
            const auto digit = [&](int plane, double base) {
                return std::lround((picture.mean(plane, left + .1, top + .1, left + .4, top + .4) - base) /
                                   40);
            };
            const long luma = digit(0, 20);
            EXPECT_EQ(luma, digit(1, 20)) << "luma and chroma turn together";
            found += std::to_string(luma);
        }
    }
    return found;
}

/// How much rows differ from their neighbours on both sides, on the mean: the teeth of interlaced motion.
double teeth(const std::vector<Picture>& pictures) {
    double sum = 0;
    int count = 0;
    for (const Picture& each : pictures) {
        const AVFrame& frame = *each.frame;
        const auto pixel = [&frame](int x, int y) { return int{frame.data[0][y * frame.linesize[0] + x]}; };
        for (int y = 1; y + 1 < frame.height; ++y) {
            for (int x = 0; x < frame.width; ++x, ++count)
                sum += std::abs(2 * pixel(x, y) - pixel(x, y - 1) - pixel(x, y + 1));
        }
    }
    return sum / count;
}

/// The colour of a flat picture, by the matrix that its tag names.
std::array<double, 3> rgbOf(const Picture& picture) {
    const bool isHd = picture.frame->colorspace == AVCOL_SPC_BT709;
    const double red = isHd ? 0.2126 : 0.299;
    const double blue = isHd ? 0.0722 : 0.114;
    const double luma = (picture.mean(0, .2, .2, .8, .8) - 16) / 219 * 255;
    const double cb = (picture.mean(1, .2, .2, .8, .8) - 128) / 112 * 255;
    const double cr = (picture.mean(2, .2, .2, .8, .8) - 128) / 112 * 255;
    const double r = luma + (1 - red) * cr;
    const double b = luma + (1 - blue) * cb;
    return {r, (luma - red * r - blue * b) / (1 - red - blue), b};
}

} // namespace

TEST_F(ExportPicture, StandsUprightWhateverTheMatrix) {
    const std::string quarters = "20+40*(1+gte(X,W/2)+2*gte(Y,H/2))";
    const std::string upright =
        make("upright.mp4", picture("160x96", quarters, "-c:v libx264 -crf 5", quarters));
    struct {
        std::array<double, 4> matrix;
        std::string expected;
    } const cases[] = {
        {{1, 0, 0, 1}, "1234"},  {{0, 1, -1, 0}, "3142"}, {{-1, 0, 0, -1}, "4321"}, {{0, -1, 1, 0}, "2413"},
        {{-1, 0, 0, 1}, "2143"}, {{1, 0, 0, -1}, "3412"}, {{0, 1, 1, 0}, "1324"},   {{0, -1, -1, 0}, "4231"},
        {{0, 2, -2, 0}, "3142"}, {{0, 0, 0, 0}, "1234"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.expected);
        const auto pictures = picturesOf(convert(turned(upright, each.matrix), Preset::Low).path);
        ASSERT_EQ(pictures.size(), 5U);
        EXPECT_EQ(quartersOf(pictures[2]), each.expected);
        const bool isSideways = each.matrix[1] != 0;
        EXPECT_EQ(pictures[2].frame->width, isSideways ? 96 : 160);
        EXPECT_EQ(pictures[2].frame->height, isSideways ? 160 : 96);
    }
}

TEST_F(ExportPicture, HasSquarePixelsAndEvenSidesAndIsNeverEnlarged) {
    struct {
        std::string size, aspect;
        Preset preset;
        int width, height;
    } const cases[] = {
        {"160x120", "1/1", Preset::Highest, 160, 120}, {"161x121", "1/1", Preset::Medium, 162, 122},
        {"720x576", "16/15", Preset::Low, 480, 360},   {"720x576", "64/45", Preset::Medium, 1024, 576},
        {"160x120", "1/2", Preset::Medium, 80, 120},   {"800x600", "1/1", Preset::Low, 480, 360},
        {"600x800", "1/1", Preset::Low, 360, 480},     {"64x2", "1/1", Preset::Low, 64, 2},
        {"16000x64", "1/1", Preset::Low, 8192, 32},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.size + " " + each.aspect);
        const Movie movie =
            convert(make("source.mkv", "-f lavfi -i color=gray:s=" + each.size +
                                           ":r=5:d=0.4,format=yuv444p,setsar=" + each.aspect + " -c:v ffv1"),
                    each.preset);
        EXPECT_NEAR(movie.video().codec->width, each.width, 1.5);
        EXPECT_NEAR(movie.video().codec->height, each.height, 1.5);
        EXPECT_EQ(movie.video().codec->width % 2 + movie.video().codec->height % 2, 0);
        const AVRational aspect = movie.video().codec->sample_aspect_ratio;
        EXPECT_TRUE(aspect.num == aspect.den) << aspect.num << ":" << aspect.den;
    }
}

TEST_F(ExportPicture, OnlyWhatIsFlaggedAsInterlacedIsDeinterlaced) {
    const std::string moving =
        "-f lavfi -i \"nullsrc=s=160x120:r=20:d=1,geq=lum='if(lt(mod(X-5*N,64),32),200,40)'"
        ":cb=128:cr=128,format=yuv420p,tinterlace=interleave_top,setfield=";
    const std::string flagged = make("flagged.mp4", moving + "tff\" -c:v libx264 -crf 8 -flags +ilme+ildct");
    const std::string unflagged = make("unflagged.mp4", moving + "prog\" -c:v libx264 -crf 8");
    const double before = teeth(picturesOf(unflagged));
    ASSERT_GT(before, 10);
    const Movie smooth = convert(flagged, Preset::Highest);
    EXPECT_LT(teeth(picturesOf(smooth.path)), before / 4);
    EXPECT_EQ(smooth.video().starts(), Movie::read(flagged).video().starts());
    EXPECT_NEAR(smooth.duration, Movie::read(flagged).duration, 0.001);
    EXPECT_GT(teeth(picturesOf(convert(unflagged, Preset::Highest).path)), before * 0.9);
}

TEST_F(ExportPicture, FullRangeBecomesLimitedAndLimitedStays) {
    struct {
        std::string options;
        double black, slope;
    } const cases[] = {
        {"-c:v libx264 -crf 1 -color_range pc", 16, 219.0 / 255},
        {"-c:v ffv1 -color_range pc", 16, 219.0 / 255},
        {"-c:v libx264 -crf 1 -color_range tv", 0, 1},
        {"-c:v libx264 -crf 1", 0, 1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.options);
        const auto pictures =
            picturesOf(convert(make("ramp.mkv", picture("256x64", "X", each.options)), Preset::Highest).path);
        ASSERT_FALSE(pictures.empty());
        EXPECT_EQ(pictures[0].frame->color_range, AVCOL_RANGE_MPEG);
        for (int x = 32; x <= 224; x += 32)
            EXPECT_NEAR(pictures[0].mean(0, (x - 4) / 256.0, 0, (x + 4) / 256.0, 1),
                        each.black + each.slope * (x - 0.5), 1.5)
                << x;
    }
}

TEST_F(ExportPicture, ColoursStayTheSameInEveryFormat) {
    struct Case {
        std::string format, codec, matrix = "bt601", size = "160x120";
    };
    std::vector<Case> cases{
        {"yuv420p", "libx264 -colorspace bt709 -color_primaries bt709 -color_trc bt709", "bt709"},
        {"yuv420p", "libx264 -colorspace smpte170m -color_primaries smpte170m -color_trc smpte170m"},
        {"yuv420p", "libx264", "bt709", "1280x720"},
        {"yuv422p10le", "v210", "bt709", "1280x720"},
        {"yuvj420p", "mjpeg", "bt601:out_range=pc"},
        {"gbrp,split[a][b];[a]palettegen[p];[b][p]paletteuse", "png"},
    };
    const std::map<std::string, std::string> ordinary{
        {"libx264", "yuv420p yuv444p yuv420p10le"},
        {"ffv1", "yuv422p yuv411p yuv410p yuv440p yuva420p yuv444p16le gray gray10le ya8 gbrp12le bgr0"},
        {"png", "rgb24 rgba rgb48be"},
        {"libx264rgb", "gbrp"},
        {"rawvideo", "yuyv422"},
        {"rawvideo -f nut", "rgb555le"},
    };
    for (const auto& [codec, formats] : ordinary) {
        std::istringstream words(formats);
        for (std::string format; words >> format;)
            cases.push_back({format, codec});
    }
    for (const auto& each : cases) {
        SCOPED_TRACE(each.format + " " + each.codec + " " + each.size);
        const Movie movie =
            convert(make("source.mkv", "-f lavfi -i \"color=0xC83C64:s=" + each.size +
                                           ":r=5:d=0.4,format=gbrp,scale=out_color_matrix=" + each.matrix +
                                           ",format=" + each.format + "\" -c:v " + each.codec),
                    Preset::Highest);
        const bool isGray = each.format.starts_with("gray") || each.format == "ya8";
        const auto pictures = picturesOf(movie.path);
        ASSERT_FALSE(pictures.empty());
        const auto [red, green, blue] = rgbOf(pictures[0]);
        const double gray = 0.299 * 0xC8 + 0.587 * 0x3C + 0.114 * 0x64;
        EXPECT_NEAR(red, isGray ? gray : 0xC8, 5);
        EXPECT_NEAR(green, isGray ? gray : 0x3C, 5);
        EXPECT_NEAR(blue, isGray ? gray : 0x64, 5);
        EXPECT_EQ(movie.video().codec->profile, FF_PROFILE_H264_HIGH);
    }
}

TEST_F(ExportPicture, ASizeThatChangesOnTheWayIsFollowed) {
    const std::string quarters = "20+40*(1+gte(X,W/2)+2*gte(Y,H/2))";
    std::string joined;
    for (const auto& [size, at] :
         {std::pair("160x96", "0"), std::pair("320x240", "0.5"), std::pair("64x48", "1")})
        joined += contents(make(
            "part.ts", picture(size, quarters,
                               std::string("-c:v libx264 -crf 5 -bf 0 -output_ts_offset ") + at, quarters)));
    const Movie movie = convert(write("joined.ts", joined), Preset::Low);
    const auto pictures = picturesOf(movie.path);
    EXPECT_EQ(pictures.size(), 15U);
    for (const Picture& each : pictures) {
        EXPECT_EQ(each.frame->width, pictures[0].frame->width);
        EXPECT_EQ(each.frame->height, pictures[0].frame->height);
        EXPECT_EQ(quartersOf(each), "1234") << each.start;
    }
}
