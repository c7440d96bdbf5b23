// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include <algorithm>
#include <cmath>

using namespace reelsmith::media;

namespace {

/// Sources with a short picture and a sound of their own.
class ExportSound : public MovieTest {
protected:
    std::string withSound(const std::string& name, const std::string& sound) const {
        return make(name, clockPictures(5, 1) + sound + " -c:v libx264 -preset ultrafast");
    }
};

double decibels(double ratio) {
    return 20 * std::log10(ratio);
}

} // namespace

TEST_F(ExportSound, AnyRateAndChannelCountBecomesOrdinaryAac) {
    struct {
        std::string layout;
        int rate;
        std::string codec;
        int resultChannels, resultRate;
    } const cases[] = {
        {"mono", 8'000, "pcm_u8", 1, 8'000},         {"mono", 48'000, "flac", 1, 48'000},
        {"stereo", 44'100, "libmp3lame", 2, 44'100}, {"stereo", 96'000, "pcm_s24le", 2, 48'000},
        {"stereo", 88'200, "flac", 2, 44'100},       {"stereo", 37'800, "pcm_s16le", 2, 44'100},
        {"5.1", 48'000, "ac3", 2, 48'000},           {"7.1", 96'000, "pcm_s32le", 2, 48'000},
        {"3.0", 32'000, "pcm_f32le", 2, 32'000},     {"stereo", 6'000, "pcm_s16le", 2, 8'000},
        {"stereo", 48'000, "pcm_f64le", 2, 48'000},  {"stereo", 48'000, "alac", 2, 48'000},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.layout + " " + std::to_string(each.rate) + " " + each.codec);
        const std::string rate = std::to_string(each.rate);
        const Movie movie = convert(withSound(
            "source.mkv", "-f lavfi -i \"aevalsrc='0.25*sin(2*PI*440*t)|0.25*sin(2*PI*440*t)':d=1:s=" + rate +
                              ",aformat=channel_layouts=" + each.layout + "\" -c:a " + each.codec));
        const AVCodecParameters& codec = *movie.sound().codec;
        EXPECT_EQ(codec.codec_id, AV_CODEC_ID_AAC);
        EXPECT_EQ(codec.profile, FF_PROFILE_AAC_LOW);
        EXPECT_EQ(codec.ch_layout.nb_channels, each.resultChannels);
        EXPECT_EQ(codec.sample_rate, each.resultRate);
        EXPECT_NEAR(movie.duration, 1, 0.03);
        EXPECT_NEAR(soundOf(movie.path).level(0, 0.2, 0.8), 0.25 / std::sqrt(each.resultChannels), 0.01);
    }
}

TEST_F(ExportSound, FoldedSoundDoesNotClip) {
    const std::string full =
        withSound("full.mkv", "-f lavfi -i \"aevalsrc='0.99*sin(2*PI*440*t)|0.99*sin(2*PI*440*t)|"
                              "0.99*sin(2*PI*440*t)|0|0.99*sin(2*PI*440*t)|0.99*sin(2*PI*440*t)'"
                              ":d=1:s=48000:c=5.1\" -c:a flac");
    const Sound sound = soundOf(convert(full, Preset::Highest).path);
    const double peak = std::ranges::max(sound.channels.at(0));
    EXPECT_LE(peak, 1.0);
    // A clipped sine comes nearer to a square, whose level is its peak.
    EXPECT_NEAR(decibels(sound.level(0, 0.2, 0.8) / peak), -3.01, 0.3);
    EXPECT_GT(peak, 0.8);
}

TEST_F(ExportSound, PassthroughCopiesEverySoundThatMp4Holds) {
    const Movie source = Movie::read(withSound(
        "source.mkv",
        tone("0.3", 1) +
            "-map 0 -map 1 -map 1 -map 1 -map 1 -map 1 -map 1 -c:a:0 flac -metadata:s:a:0 language=ger "
            "-c:a:1 libopus -c:a:2 alac -c:a:3 ac3 -c:a:4 libmp3lame -c:a:5 libvorbis"));
    const Movie copy = convert(source.path, Preset::Passthrough);
    std::vector<AVCodecID> codecs;
    for (const Movie::Track& track : copy.tracks)
        codecs.push_back(track.codec->codec_id);
    EXPECT_EQ(codecs, (std::vector{AV_CODEC_ID_H264, AV_CODEC_ID_FLAC, AV_CODEC_ID_OPUS, AV_CODEC_ID_ALAC,
                                   AV_CODEC_ID_AC3, AV_CODEC_ID_MP3, AV_CODEC_ID_AAC}));
    EXPECT_EQ(copy.tracks[1].language, "ger");
    EXPECT_TRUE(copy.tracks[1].data() == source.tracks[1].data());
}

TEST_F(ExportSound, TheTrackInTheUsersLanguageIsKeptAndMarked) {
    const std::string source =
        make("source.mkv", clockPictures(5, 1) + tone("0.1", 1) +
                               "-map 0 -map 1 -map 1 -map 1 -c:v libx264 -metadata:s:a:0 language=deu "
                               "-metadata:s:a:1 language=fra -metadata:s:a:2 language=eng -disposition:a:0 0 "
                               "-disposition:a:1 default -c:a flac");
    for (const std::string language : {"eng", "spa"}) {
        const Movie movie = convert(source, Preset::Low, {language});
        EXPECT_EQ(movie.count(AVMEDIA_TYPE_AUDIO), 1);
        EXPECT_EQ(movie.sound().language, language == "spa" ? "fra" : language);
    }
}
