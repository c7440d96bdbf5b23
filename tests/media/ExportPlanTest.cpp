// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include "media/Colour.h"
#include "media/ExportPlan.h"
#include "media/Probe.h"

#include <algorithm>
#include <fcntl.h>
#include <functional>

using namespace reelsmith::media;

namespace {

Track videoTrack(int width = 1920, int height = 1080) {
    Track track;
    track.kind = TrackKind::Video;
    track.codec = AV_CODEC_ID_H264;
    track.hasDecoder = true;
    track.width = width;
    track.height = height;
    track.frameRate = 30;
    track.bitRate = 16'000'000;
    return track;
}

Track soundTrack(const std::string& language = {}) {
    Track track;
    track.kind = TrackKind::Audio;
    track.codec = AV_CODEC_ID_AAC;
    track.profile = 1;
    track.hasDecoder = true;
    track.channels = 2;
    track.sampleRate = 48'000;
    track.bitRate = 128'000;
    track.language = language;
    return track;
}

MediaInfo fileOf(std::vector<Track> tracks, const std::string& container = "mov,mp4,m4a,3gp,3g2,mj2") {
    MediaInfo info;
    for (std::size_t i = 0; i < tracks.size(); ++i)
        tracks[i].index = static_cast<int>(i);
    info.tracks = std::move(tracks);
    info.container = container;
    info.durationUnits = 60'000;
    info.durationTimescale = 1000;
    info.sizeBytes = 120'000'000;
    return info;
}

ExportPlan planOf(const MediaInfo& info, Preset preset, const std::vector<std::string>& languages = {}) {
    return planExport(info, preset, languages).value();
}

using Change = std::function<void(Track&)>;

Track changed(Track track, const Change& change) {
    change(track);
    return track;
}

constexpr auto low = Preset::Low;
constexpr auto medium = Preset::Medium;
constexpr auto highest = Preset::Highest;
constexpr auto passthrough = Preset::Passthrough;

} // namespace

TEST(ExportPlan, SizesAreBoundedAndKeepTheirShape) {
    struct {
        Size stored;
        AVRational aspect;
        Preset preset;
        Size expected;
    } const cases[] = {
        {{1920, 1080}, {1, 1}, low, {640, 360}},
        {{1920, 1080}, {1, 1}, medium, {1280, 720}},
        {{1080, 1920}, {1, 1}, low, {360, 640}},
        {{1920, 1080}, {1, 1}, highest, {1920, 1080}},
        {{854, 480}, {1, 1}, low, {640, 360}},
        {{3840, 2160}, {1, 1}, highest, {3840, 2160}},
        {{160, 120}, {1, 1}, low, {160, 120}},
        {{7680, 4320}, {1, 1}, highest, {3840, 2160}},
        {{1440, 1080}, {4, 3}, highest, {1920, 1080}},
        {{7680, 2160}, {1, 1}, highest, {5792, 1630}},
        {{720, 480}, {8, 9}, medium, {640, 480}},
        {{60'000, 1000}, {1, 1}, low, {8192, 136}},
        {{1, 1}, {1, 1}, low, {2, 2}},
        {{1920, 1080}, {15, 1}, medium, {8192, 308}},
    };
    for (const auto& each : cases) {
        Track track = videoTrack(each.stored.width, each.stored.height);
        track.pixelAspect = each.aspect;
        const Size size = planOf(fileOf({track}), each.preset).video.size();
        EXPECT_EQ(size, each.expected) << each.stored.width << "x" << each.stored.height << " became "
                                       << size.width << "x" << size.height;
    }
    const Track turned = changed(
        videoTrack(), [](Track& track) { track.displayMatrix = {0, 65536, 0, -65536, 0, 0, 0, 0, 1 << 30}; });
    EXPECT_EQ(planOf(fileOf({turned}), low).video.size(), (Size{360, 640}));
}

TEST(ExportPlan, TheFirstTrackWithAPictureIsShownWhateverItsMarks) {
    const Change cover = [](Track& track) { track.isCoverArt = true; };
    const Change empty = [](Track& track) { track.hasSamples = false; };
    const Change unknown = [](Track& track) { track.hasDecoder = false; };
    const Change flat = [](Track& track) { track.height = 0; };
    const Track good = videoTrack(640, 480);
    const Track better = changed(videoTrack(3840, 2160), [](Track& track) { track.isDefault = true; });
    for (const Change& change : {cover, empty, unknown, flat})
        EXPECT_EQ(
            planOf(fileOf({changed(videoTrack(), change), soundTrack(), good, better}), low).video.track, 2);

    struct {
        Change change;
        ErrorCode expected;
    } const refused[] = {
        {cover, ErrorCode::InvalidSource},
        {empty, ErrorCode::InvalidSource},
        {unknown, ErrorCode::Unsupported},
        {[](Track& track) { track.isEncrypted = true; }, ErrorCode::Encrypted},
        {[](Track& track) { track.hasForeignBaseLayer = true; }, ErrorCode::Unsupported},
        {[](Track& track) { track.width = 70'000; }, ErrorCode::Unsupported},
    };
    for (const auto& each : refused) {
        const auto plan = planExport(fileOf({changed(videoTrack(), each.change), soundTrack()}), low, {});
        ASSERT_FALSE(plan);
        EXPECT_EQ(plan.error().code, each.expected) << plan.error().text;
    }
}

TEST(ExportPlan, OneSoundTrackIsChosenByLanguageMarkOrPlace) {
    const auto marked = [](Track track) {
        track.isDefault = true;
        return track;
    };
    const Track mute = changed(soundTrack("fra"), [](Track& track) { track.hasDecoder = false; });
    struct {
        std::vector<Track> sounds;
        std::vector<std::string> languages;
        int expected; ///< 0 is the picture
    } const cases[] = {
        {{soundTrack("deu"), soundTrack("fra")}, {"fra"}, 2},
        {{soundTrack("deu"), soundTrack("fra-ca")}, {"fra"}, 2},
        {{marked(soundTrack("deu")), soundTrack("fra"), soundTrack("eng")}, {"eng", "fra"}, 3},
        {{soundTrack("deu"), marked(soundTrack("fra"))}, {"eng"}, 2},
        {{marked(soundTrack()), soundTrack("fra")}, {"fra"}, 1},
        {{soundTrack(), soundTrack()}, {"fra"}, 1},
        {{soundTrack("deu"), mute, soundTrack("eng")}, {"fra"}, 1},
    };
    for (const auto& each : cases) {
        std::vector<Track> tracks{videoTrack()};
        tracks.insert(tracks.end(), each.sounds.begin(), each.sounds.end());
        const ExportPlan plan = planOf(fileOf(tracks), medium, each.languages);
        ASSERT_EQ(plan.sounds.size(), 1U);
        EXPECT_EQ(plan.sounds[0].track, each.expected);
    }
    EXPECT_EQ(planOf(fileOf({videoTrack(), soundTrack(), mute, soundTrack()}), passthrough).sounds.size(),
              2U);
    EXPECT_TRUE(planOf(fileOf({videoTrack(), mute}), medium).sounds.empty());
}

TEST(ExportPlan, SoundIsCopiedOnlyWhereEveryPlayerTakesIt) {
    struct {
        std::string container;
        Preset preset;
        AVCodecID codec;
        int profile;
        int channels;
        int kilobits;
        bool isCopied;
    } const cases[] = {
        {"mov,mp4", medium, AV_CODEC_ID_AAC, 1, 2, 160, true},
        {"mov,mp4", medium, AV_CODEC_ID_AAC, 1, 2, 161, false},
        {"mov,mp4", low, AV_CODEC_ID_AAC, 1, 1, 80, true},
        {"mov,mp4", low, AV_CODEC_ID_AAC, 1, 1, 81, false},
        {"mov,mp4", highest, AV_CODEC_ID_AAC, 1, 6, 160, false},
        {"mov,mp4", highest, AV_CODEC_ID_AAC, 4, 2, 96, false},
        {"mov,mp4", highest, AV_CODEC_ID_AAC, 1, 2, 0, false},
        {"matroska,webm", highest, AV_CODEC_ID_AAC, 1, 2, 96, false},
        {"matroska,webm", passthrough, AV_CODEC_ID_AAC, 4, 6, 600, true},
        {"mov,mp4", passthrough, AV_CODEC_ID_PCM_S16LE, -99, 2, 1536, false},
    };
    for (const auto& each : cases) {
        Track sound = soundTrack();
        sound.codec = each.codec;
        sound.profile = each.profile;
        sound.channels = each.channels;
        sound.bitRate = each.kilobits * 1000;
        const ExportPlan plan = planOf(fileOf({videoTrack(), sound}, each.container), each.preset);
        EXPECT_EQ(plan.sounds.at(0).treatment == Treatment::Copy, each.isCopied) << &each - cases;
    }
    const Track edited = changed(soundTrack(), [](Track& track) { track.hasSimpleEdits = false; });
    EXPECT_EQ(planOf(fileOf({videoTrack(), edited}), passthrough).sounds[0].treatment, Treatment::Encode);
}

TEST(ExportPlan, TheEarliestOfPictureAndSoundIsZero) {
    const auto at = [](Track track, double seconds) {
        track.startSeconds = seconds;
        return track;
    };
    EXPECT_DOUBLE_EQ(planOf(fileOf({at(videoTrack(), 2), at(soundTrack(), 1.5)}), low).zeroSeconds, 1.5);
    EXPECT_DOUBLE_EQ(planOf(fileOf({at(videoTrack(), 1), at(soundTrack(), 1.5)}), low).zeroSeconds, 1);
    EXPECT_DOUBLE_EQ(planOf(fileOf({at(videoTrack(), 1), at(soundTrack(), -0.02)}), low).zeroSeconds, 0);
    // What is left out does not count.
    EXPECT_DOUBLE_EQ(planOf(fileOf({at(videoTrack(), 2), at(soundTrack("deu"), 2), at(soundTrack("fra"), 1)}),
                            low, {"deu"})
                         .zeroSeconds,
                     2);
}

TEST(ColourPlan, SaysWhatIsMeantAndWhatBecomesOfIt) {
    struct {
        int height;
        AVColorSpace matrix;
        AVColorTransferCharacteristic transfer;
        AVColorSpace meant;
        AVColorSpace result;
    } const cases[] = {
        {1080, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_UNSPECIFIED, AVCOL_SPC_BT709, AVCOL_SPC_BT709},
        {576, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_UNSPECIFIED, AVCOL_SPC_BT470BG, AVCOL_SPC_BT470BG},
        {480, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_BT709, AVCOL_SPC_SMPTE170M, AVCOL_SPC_SMPTE170M},
        {1080, AVCOL_SPC_SMPTE170M, AVCOL_TRC_UNSPECIFIED, AVCOL_SPC_SMPTE170M, AVCOL_SPC_SMPTE170M},
        {240, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_SMPTE2084, AVCOL_SPC_BT2020_NCL, AVCOL_SPC_BT709},
        {240, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_ARIB_STD_B67, AVCOL_SPC_BT2020_NCL, AVCOL_SPC_BT709},
        {1080, AVCOL_SPC_BT2020_NCL, AVCOL_TRC_BT2020_10, AVCOL_SPC_BT2020_NCL, AVCOL_SPC_BT709},
    };
    for (const auto& each : cases) {
        const FrameHandle frame = makeFrame();
        frame->format = AV_PIX_FMT_YUV420P;
        frame->width = 640;
        frame->height = each.height;
        frame->colorspace = each.matrix;
        frame->color_trc = each.transfer;
        const ColourPlan plan = planColour(*frame);
        EXPECT_EQ(plan.source.matrix, each.meant) << &each - cases;
        EXPECT_EQ(plan.result.matrix, each.result) << &each - cases;
        EXPECT_EQ(plan.needsToneMapping,
                  each.transfer == AVCOL_TRC_SMPTE2084 || each.transfer == AVCOL_TRC_ARIB_STD_B67);
        EXPECT_EQ(plan.result.range, AVCOL_RANGE_MPEG);
    }
}

TEST(Estimate, GrowsWithThePresetAndIsUnknownWithoutADuration) {
    MediaInfo info = fileOf({videoTrack(), soundTrack()});
    std::vector<std::int64_t> bytes;
    for (const Preset preset : {low, medium, highest, passthrough})
        bytes.push_back(estimateBytes(info, planOf(info, preset)));
    EXPECT_TRUE(std::is_sorted(bytes.begin(), bytes.end()));
    EXPECT_EQ(std::adjacent_find(bytes.begin(), bytes.end()), bytes.end());
    EXPECT_NEAR(static_cast<double>(bytes.back()), 121e6, 2e6);
    info.durationUnits = 0;
    EXPECT_EQ(estimateBytes(info, planOf(info, medium)), 0);
}

using EstimateOf = MovieTest;

TEST_F(EstimateOf, AnOrdinaryClipIsRightWithinAFactorOfAboutTwo) {
    make("still.png", "-f lavfi -i mandelbrot=s=1920x1080:r=1:start_scale=0.05:maxiter=300 -frames:v 1");
    const std::string pan =
        "movie=still.png,loop=-1:1:0,setpts=N/30/TB,crop=1280:720:100+n*4:50+n,noise=alls=3:allf=t";
    const std::string motion = "testsrc2=s=1280x720:r=30,noise=alls=4:allf=t";
    for (const std::string& scene : {pan, motion}) {
        const std::string source =
            make("source.mp4", "-f lavfi -i \"" + scene + "\" " + tone("0.2", 1) +
                                   "-t 1 -c:v libx264 -preset ultrafast -crf 20 -c:a aac -b:a 128k");
        const OpenFile file(source, O_RDONLY);
        const MediaInfo info = probe(**Source::open(file.descriptor(), Source::Detail::Headers));
        for (const Preset preset : {low, medium, passthrough}) {
            const auto expected = static_cast<double>(estimateBytes(info, planOf(info, preset)));
            const auto real = static_cast<double>(contents(convert(source, preset).path).size());
            EXPECT_GT(expected / real, 1 / 2.3) << static_cast<int>(preset);
            EXPECT_LT(expected / real, 2.3) << static_cast<int>(preset);
        }
    }
}
