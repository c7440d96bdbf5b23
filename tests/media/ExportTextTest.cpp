// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

using namespace reelsmith::media;

namespace {

using ExportText = MovieTest;

struct Text {
    double start;
    double end;
    std::string text;
};

/// The texts of a track of timed text (3GPP TS 26.245: two bytes of length, then the text).
std::vector<Text> textsOf(const Movie::Track& track) {
    std::vector<Text> texts;
    for (const Movie::Sample& sample : track.samples) {
        if (!texts.empty() && texts.back().end == 0)
            texts.back().end = sample.start;
        if (sample.data.size() < 2)
            continue;
        const auto length = static_cast<std::size_t>(static_cast<unsigned char>(sample.data[0]) << 8 |
                                                     static_cast<unsigned char>(sample.data[1]));
        if (length > 0)
            texts.push_back({sample.start, 0, sample.data.substr(2, length)});
    }
    if (!texts.empty() && texts.back().end == 0)
        texts.back().end = track.end;
    return texts;
}

void expectTexts(const Movie::Track& track, const std::vector<Text>& expected) {
    const std::vector<Text> found = textsOf(track);
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i].start, expected[i].start, 0.02) << i;
        EXPECT_NEAR(found[i].end, expected[i].end, 0.02) << i;
        EXPECT_EQ(found[i].text, expected[i].text) << i;
    }
}

const std::string subRip = "1\n00:00:00,200 --> 00:00:00,900\nSchöne <i>Grüße</i>\nzwei Zeilen\n\n"
                           "2\n00:00:01,100 --> 00:00:01,500\nSecond, with a comma\n\n"
                           "3\n00:00:01,500 --> 00:00:01,900\n日本語\n\n";
const std::vector<Text> subRipTexts{
    {0.2, 0.9, "Schöne Grüße\nzwei Zeilen"}, {1.1, 1.5, "Second, with a comma"}, {1.5, 1.9, "日本語"}};

} // namespace

TEST_F(ExportText, SubtitlesBecomeTimedTextInEveryPreset) {
    write("first.srt", subRip);
    write("second.srt", "1\n00:00:00,500 --> 00:00:01,000\nOther language\n\n");
    const std::string source =
        make("source.mkv",
             clockPictures(10, 2) + tone("0.1", 2) +
                 "-i first.srt -i second.srt -map 0 -map 1 -map 2 -map 3 -c:v libx264 -c:a pcm_s16le -c:s:0 "
                 "ass -c:s:1 srt -metadata:s:s:0 language=ger -metadata:s:s:1 language=eng");
    for (const Preset preset : {Preset::Low, Preset::Highest, Preset::Passthrough}) {
        const Movie movie = convert(source, preset);
        ASSERT_EQ(movie.count(AVMEDIA_TYPE_SUBTITLE), 2);
        const Movie::Track& first = movie.track(AVMEDIA_TYPE_SUBTITLE);
        EXPECT_EQ(first.codec->codec_id, AV_CODEC_ID_MOV_TEXT);
        EXPECT_EQ(first.language, "ger");
        EXPECT_EQ(movie.tracks.back().language, "eng");
        expectTexts(first, subRipTexts);
        expectTexts(movie.tracks.back(), {{0.5, 1, "Other language"}});
    }
    // Timed text of an MP4 file goes over too.
    const std::string again = make("again.mp4", "-i source.mkv -map 0 -c:v copy -c:a aac -c:s mov_text");
    for (const Preset preset : {Preset::Medium, Preset::Passthrough})
        expectTexts(convert(again, preset).track(AVMEDIA_TYPE_SUBTITLE), subRipTexts);
}

TEST_F(ExportText, SubtitlesFollowThePictureToZero) {
    write("late.srt", "1\n00:00:04,500 --> 00:00:05,250\nBegins before the picture\n\n"
                      "2\n00:00:05,500 --> 00:00:06,000\nIn its middle\n\n");
    const Movie movie =
        convert(make("late.mkv", "-itsoffset 5 " + clockPictures(10, 2) +
                                     "-i late.srt -map 0 -map 1 -c:v libx264 -bf 0 -c:s srt -copyts"));
    EXPECT_NEAR(movie.video().starts().at(0), 0, 0.001);
    expectTexts(movie.track(AVMEDIA_TYPE_SUBTITLE),
                {{0, 0.25, "Begins before the picture"}, {0.5, 1, "In its middle"}});
}

TEST_F(ExportText, ChaptersKeepTheirTimesAndTitles) {
    write("chapters.txt", ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=700\ntitle=Eröffnung\n"
                          "[CHAPTER]\nTIMEBASE=1/1000\nSTART=700\nEND=1500\ntitle=Second\n"
                          "[CHAPTER]\nTIMEBASE=1/1000\nSTART=1500\nEND=2000\ntitle=\n");
    for (const std::string name : {"source.mkv", "source.mp4"}) {
        const std::string source =
            make(name,
                 clockPictures(10, 2) + "-i chapters.txt -map_metadata 1 -map_chapters 1 -c:v libx264 -bf 0");
        for (const Preset preset : {Preset::Low, Preset::Passthrough}) {
            SCOPED_TRACE(name);
            const Movie movie = convert(source, preset);
            ASSERT_EQ(movie.chapters.size(), 3U);
            const std::vector<Movie::Chapter> expected{
                {0, 0.7, "Eröffnung"}, {0.7, 1.5, "Second"}, {1.5, 2, ""}};
            for (std::size_t i = 0; i < 3; ++i) {
                EXPECT_NEAR(movie.chapters[i].start, expected[i].start, 0.002);
                EXPECT_NEAR(movie.chapters[i].end, expected[i].end, 0.002);
                EXPECT_EQ(movie.chapters[i].title, expected[i].title);
            }
            EXPECT_EQ(movie.count(AVMEDIA_TYPE_VIDEO), 1);
        }
    }
}

TEST_F(ExportText, TheDayIsKeptAndThePlaceIsNot) {
    const std::string clip = clockPictures(10, 1) + tone("0.1", 1) + "-c:v libx264 -c:a aac ";
    const std::string facts =
        "-metadata creation_time=2021-06-05T04:03:02Z -metadata location=+48.8577+002.295/ "
        "-metadata com.apple.quicktime.location.ISO6709=+48.8577+002.295+035/ "
        "-metadata comment=48.8577 -metadata:s:v handler_name=48.8577 ";
    for (const auto& [name, options] :
         {std::pair("source.mp4", ""), std::pair("source.mov", "-movflags use_metadata_tags"),
          std::pair("source.mkv", "")}) {
        const std::string source = make(name, clip + facts + options);
        ASSERT_NE(contents(source).find("48.8577"), std::string::npos);
        for (const Preset preset : {Preset::Medium, Preset::Passthrough}) {
            SCOPED_TRACE(name);
            const Movie movie = convert(source, preset);
            EXPECT_EQ(movie.metadata.at("creation_time"), "2021-06-05T04:03:02.000000Z");
            EXPECT_EQ(contents(movie.path).find("48.8577"), std::string::npos);
            for (const char* box : {"\xa9xyz", "loci", "location"})
                EXPECT_EQ(contents(movie.path).find(box), std::string::npos) << box;
        }
    }
}

TEST_F(ExportText, CoverArtAndDataStayBehindAndTheIndexStandsInFront) {
    make("cover.png", "-f lavfi -i color=red:s=32x32 -frames:v 1");
    const std::string clip = "-i cover.png " + clockPictures(10, 1) + tone("0.1", 1);
    const std::string covered =
        make("covered.mp4",
             clip + "-map 0 -map 1 -map 2 -c:v:0 copy -disposition:v:0 attached_pic -c:v:1 libx264");
    const std::string timed = make("timed.mov", clip + "-map 1 -map 2 -c:v libx264 -timecode 01:00:00:00");
    const std::string attached = make("attached.mkv", clip + "-map 1 -map 2 -c:v libx264 -attach cover.png "
                                                             "-metadata:s:t mimetype=image/png");
    ASSERT_EQ(Movie::read(timed).count(AVMEDIA_TYPE_DATA), 1);
    for (const std::string& source : {covered, timed, attached}) {
        for (const Preset preset : {Preset::Low, Preset::Passthrough}) {
            SCOPED_TRACE(source);
            const Movie movie = convert(source, preset);
            EXPECT_EQ(movie.tracks.size(), 2U);
            EXPECT_EQ(movie.video().codec->width, 64);
            EXPECT_EQ(movie.video().samples.size(), 10U);
            EXPECT_EQ(movie.count(AVMEDIA_TYPE_AUDIO), 1);
            const std::string bytes = contents(movie.path);
            EXPECT_LT(bytes.find("moov"), bytes.find("mdat"));
        }
    }
}
