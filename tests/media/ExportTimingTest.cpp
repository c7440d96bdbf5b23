// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include <algorithm>
#include <cmath>

using namespace reelsmith::media;

namespace {

using ExportTiming = MovieTest;

const std::string encoder =
    "-fps_mode passthrough -enc_time_base 1/90000 -c:v libx264 -preset ultrafast -crf 8 ";

std::vector<double> evenly(double step, int count) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i)
        times.push_back(i * step);
    return times;
}

void expectTimes(const std::vector<double>& found, const std::vector<double>& expected) {
    constexpr double rounding = 0.0011;
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(found[i], expected[i], rounding) << i;
}

/// Each picture is the one taken at its time, give or take a picture at 120 frames a second.
void expectTrueClock(const Movie& movie, double zero = 0) {
    for (const Picture& picture : picturesOf(movie.path))
        EXPECT_NEAR(picture.mean(0), 20 + 100 * (picture.start + zero), 1.3) << picture.start;
}

} // namespace

TEST_F(ExportTiming, EvenRatesAreCappedAndNothingIsDoubled) {
    struct {
        double rate;
        Preset preset;
        std::string container;
        int every; ///< how many pictures of the source become one
    } const cases[] = {
        {24, Preset::Medium, "mp4", 1},   {25, Preset::Low, "mp4", 1},       {30, Preset::Medium, "mkv", 1},
        {31, Preset::Medium, "mp4", 1},   {50, Preset::Medium, "mp4", 2},    {50, Preset::Highest, "mp4", 1},
        {60, Preset::Low, "mp4", 2},      {60, Preset::Medium, "mkv", 2},    {60, Preset::Highest, "mkv", 1},
        {59.94, Preset::Medium, "ts", 2}, {29.97, Preset::Medium, "avi", 1}, {120, Preset::Medium, "mp4", 4},
        {120, Preset::Highest, "mkv", 2}, {5, Preset::Highest, "mp4", 1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::to_string(each.rate) + " " + each.container);
        const std::string source =
            make("source." + each.container,
                 clockPictures(each.rate, 1) + (each.container == "avi" ? "-c:v mpeg4 -q:v 1 " : encoder));
        const Movie movie = convert(source, each.preset);
        const auto count = static_cast<int>(std::round(each.rate));
        expectTimes(movie.video().starts(),
                    evenly(each.every / each.rate, (count + each.every - 1) / each.every));
        expectTrueClock(movie);
        EXPECT_NEAR(movie.video().end, count / each.rate, 0.002);
    }
}

TEST_F(ExportTiming, UnevenRatesStayUneven) {
    const auto timesOf = [this](const std::string& timing, Preset preset) {
        const std::string source = make(
            "source.mp4", clockPictures(25, 0.4, "settb=1/90000,setpts='(" + timing + ")/TB'") + encoder);
        const Movie movie = convert(source, preset);
        expectTrueClock(movie);
        return movie.video().starts();
    };
    // Ten pictures; those in pairs 10 ms apart, one pair each 100 ms.
    expectTimes(timesOf("0.1*floor(N/2)+0.01*mod(N,2)", Preset::Medium), evenly(0.1, 5));
    expectTimes(timesOf("0.1*floor(N/2)+0.02*mod(N,2)", Preset::Highest),
                {0, .02, .1, .12, .2, .22, .3, .32, .4, .42});
    expectTimes(timesOf("0.01*N*N", Preset::Medium), {0, .04, .09, .16, .25, .36, .49, .64, .81});
    expectTimes(timesOf("if(lt(N,5),N*0.04,1.5+N*0.04)", Preset::Low),
                {0, .04, .08, .12, .16, 1.7, 1.74, 1.78, 1.82, 1.86});
}

TEST_F(ExportTiming, TheLastPictureKeepsItsLength) {
    const std::string longLast =
        make("source.mp4",
             clockPictures(25, 1) + encoder + "-bsf:v setts=duration='if(eq(N\\,24)\\,180000\\,3600)' -bf 0");
    ASSERT_NEAR(Movie::read(longLast).video().end, 2.96, 0.001);
    for (const Preset preset : {Preset::Low, Preset::Highest}) {
        const Movie movie = convert(longLast, preset);
        EXPECT_NEAR(movie.duration, 2.96, 0.002);
    }
    // Also where only the index says it, for pictures that come out of order.
    const std::string ordered =
        make("ordered.mp4", clockPictures(25, 1.04) + encoder +
                                "-bf 1 -b_strategy 0 -bsf:v "
                                "setts=pts=PTS:dts=DTS:duration='if(eq(N\\,25)\\,180000\\,3600)'");
    EXPECT_NEAR(convert(ordered).duration, 3, 0.002);
    // Also where the last picture of the source is one that the cap drops.
    const std::string fast =
        make("fast.mp4",
             clockPictures(60, 1) + encoder + "-bsf:v setts=duration='if(eq(N\\,59)\\,90000\\,1500)' -bf 0");
    EXPECT_NEAR(convert(fast).duration, 59.0 / 60 + 1, 0.002);
}

TEST_F(ExportTiming, PictureAndSoundKeepTheirDistance) {
    struct {
        double pictureAt, soundAt;
        std::string container, codec;
    } const cases[] = {
        {0.48, 0, "mp4", "aac"}, {0.48, 0, "mkv", "pcm_s16le"}, {0, 0.7, "mp4", "aac"},
        {0, 0.7, "mkv", "flac"}, {0, 0.7, "mov", "pcm_s16le"},  {3, 3.2, "mkv", "pcm_s16le"},
        {2.12, 2, "ts", "mp2"},  {2, 2.7, "ts", "ac3"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::to_string(each.pictureAt) + " " + each.container);
        const std::string source =
            make("source." + each.container,
                 "-itsoffset " + std::to_string(each.pictureAt) + " " + clockPictures(25, 1) + "-itsoffset " +
                     std::to_string(each.soundAt) + " " + tone("gt(t,0.5)", 1) + encoder + "-c:a " +
                     each.codec + " -b:a 256k -copyts -muxdelay 0");
        const double zero = std::min(each.pictureAt, each.soundAt);
        const Movie movie = convert(source, Preset::Low);
        EXPECT_NEAR(movie.video().starts().at(0), each.pictureAt - zero, 0.011);
        const Sound sound = soundOf(movie.path);
        const double begins = each.soundAt - zero + 0.5;
        EXPECT_LT(sound.level(0, 0, begins - 0.02), 0.02);
        EXPECT_NEAR(sound.level(0, begins + 0.02, begins + 0.45), std::sqrt(0.5), 0.05);
    }
}

TEST_F(ExportTiming, AHoleInTheSoundStaysAHole) {
    for (const std::string container : {"mkv", "mp4", "ts"}) {
        SCOPED_TRACE(container);
        const std::string source =
            make("source." + container,
                 clockPictures(25, 2) + tone("0.2+0.6*gt(t,1.5)", 2) + encoder +
                     "-c:a aac -b:a 256k -bsf:a \"noise=drop='gt(n\\\\,30)*lt(n\\\\,55)'\"");
        const Sound sound = soundOf(convert(source, Preset::Low).path);
        EXPECT_NEAR(sound.level(0, 0.1, 0.6), 0.2 * std::sqrt(0.5), 0.02);
        EXPECT_LT(sound.level(0, 0.75, 1.1), 0.01);
        EXPECT_NEAR(sound.level(0, 1.3, 1.45), 0.2 * std::sqrt(0.5), 0.02);
        EXPECT_NEAR(sound.level(0, 1.55, 1.9), 0.8 * std::sqrt(0.5), 0.05);
    }
}

TEST_F(ExportTiming, SoundLongerThanThePictureIsHeardToItsEnd) {
    for (const std::string codec : {"aac", "pcm_s16le"}) {
        const std::string source =
            make("source.mov", clockPictures(25, 1) + tone("0.5", 2) + encoder + "-c:a " + codec);
        const Movie movie = convert(source);
        EXPECT_EQ(movie.sound().data() == Movie::read(source).sound().data(), codec == "aac") << "is copied";
        EXPECT_NEAR(movie.video().end, 1, 0.001);
        EXPECT_NEAR(movie.duration, 2, 0.03);
        EXPECT_NEAR(soundOf(movie.path).level(0, 1.8, 1.98), 0.5 * std::sqrt(0.5), 0.02);
    }
}

TEST_F(ExportTiming, WhatAnEditListHidesStaysHidden) {
    const std::string whole = make("whole.mp4", clockPictures(25, 2) + tone("gt(t,1)", 2) +
                                                    "-c:v libx264 -crf 8 -g 50 -bf 2 -c:a aac -b:a 256k");
    const std::string cut = make("cut.mp4", "-ss 0.6 -i whole.mp4 -c copy");
    for (const Preset preset : {Preset::Low, Preset::Passthrough}) {
        const Movie movie = convert(cut, preset);
        EXPECT_NEAR(movie.duration, 1.4, 0.05);
        expectTrueClock(movie, 0.6);
        const Sound sound = soundOf(movie.path);
        EXPECT_LT(sound.level(0, 0, 0.35), 0.02);
        EXPECT_GT(sound.level(0, 0.43, 1.3), 0.6);
    }
}

TEST_F(ExportTiming, JoinedTransportStreamsGoOnWhereTheFirstEnds) {
    const std::string part = contents(make("part.ts", clockPictures(25, 2) + tone("0.5", 2) + encoder +
                                                          "-c:a aac -mpegts_flags resend_headers"));
    const std::string later =
        contents(make("later.ts", "-itsoffset 5000 -i part.ts -c copy -copyts -muxdelay 0"));
    for (const auto& [joined, name] : {std::pair(part + part, "back"), std::pair(part + later, "ahead")}) {
        SCOPED_TRACE(name);
        const Movie movie = convert(write("joined.ts", joined), Preset::Low);
        EXPECT_NEAR(movie.duration, 4, 0.08);
        EXPECT_EQ(movie.video().samples.size(), 100U);
        EXPECT_NEAR(soundOf(movie.path).level(0, 0.1, 3.9), 0.5 * std::sqrt(0.5), 0.05);
    }
}

TEST_F(ExportTiming, ProgressGrowsAndEndsBelowOne) {
    const std::string encoded = clockPictures(25, 2) + tone("0.5", 2) + encoder + "-c:a aac ";
    for (const auto& [name, options] :
         {std::pair("source.mp4", ""), std::pair("source.mkv", "-f matroska -live 1"),
          std::pair("source.h264", "-an")}) {
        SCOPED_TRACE(name);
        const std::string source = make(name, encoded + options);
        for (const Preset preset : {Preset::Low, Preset::Passthrough}) {
            const Exported exported = tryExport(source, preset);
            ASSERT_TRUE(exported.result) << exported.result.error().text;
            ASSERT_FALSE(exported.progress.empty());
            EXPECT_TRUE(std::is_sorted(exported.progress.begin(), exported.progress.end()));
            EXPECT_GT(exported.progress.front(), 0);
            EXPECT_GT(exported.progress.back(), 0.5);
            EXPECT_LT(exported.progress.back(), 1);
        }
    }
    const std::string hours = make("hours.mkv", "-f lavfi -i color=s=32x32:r=1:d=7200 -c:v mpeg4");
    const Exported exported = tryExport(hours, Preset::Low);
    ASSERT_FALSE(exported.progress.empty());
    EXPECT_LE(exported.progress.front(), 2.0 / 7200) << "only after many pictures";
}
