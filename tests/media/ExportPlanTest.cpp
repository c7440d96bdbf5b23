// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include "media/Colour.h"
#include "media/ExportPlan.h"
#include "media/Probe.h"

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

Track soundTrack(const std::string& language = {}, bool isDefault = false) {
    Track track;
    track.kind = TrackKind::Audio;
    track.codec = AV_CODEC_ID_AAC;
    track.profile = 1;
    track.hasDecoder = true;
    track.channels = 2;
    track.sampleRate = 48'000;
    track.bitRate = 128'000;
    track.language = language;
    track.isDefault = isDefault;
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
        int width, height;
        int aspect, toAspect;
        Preset preset;
        int resultWidth, resultHeight;
    } const cases[] = {
        {854, 480, 1, 1, low, 640, 360},      {1920, 1080, 1, 1, medium, 1280, 720},
        {1920, 1080, 1, 1, low, 640, 360},    {1920, 1080, 1, 1, highest, 1920, 1080},
        {1080, 1920, 1, 1, low, 360, 640},    {3840, 2160, 1, 1, highest, 3840, 2160},
        {160, 120, 1, 1, low, 160, 120},      {7680, 4320, 1, 1, highest, 3840, 2160},
        {720, 480, 8, 9, medium, 640, 480},   {1440, 1080, 4, 3, highest, 1920, 1080},
        {60'000, 1000, 1, 1, low, 8192, 136}, {7680, 2160, 1, 1, highest, 5792, 1630},
        {1, 1, 1, 1, highest, 2, 2},          {1920, 1080, 15, 1, medium, 8192, 308},
    };
    for (const auto& each : cases) {
        Track track = videoTrack(each.width, each.height);
        track.pixelAspect = {each.aspect, each.toAspect};
        const Size size = planOf(fileOf({track}), each.preset).video.size();
        EXPECT_EQ(size, (Size{each.resultWidth, each.resultHeight}))
            << &each - cases << ": " << size.width << "x" << size.height;
        track.displayMatrix = {0, 65536, 0, -65536, 0, 0, 0, 0, 1 << 30};
        EXPECT_EQ(planOf(fileOf({track}), each.preset).video.size(), size.turned());
    }
}

TEST(ExportPlan, TheFirstTrackWithAPictureIsShownWhateverItsMarks) {
    struct {
        Change change;
        ErrorCode alone;
        bool isPassedOver;
    } const cases[] = {
        {[](Track& track) { track.isCoverArt = true; }, ErrorCode::InvalidSource, true},
        {[](Track& track) { track.hasSamples = false; }, ErrorCode::InvalidSource, true},
        {[](Track& track) { track.hasDecoder = false; }, ErrorCode::Unsupported, true},
        {[](Track& track) { track.height = 0; }, ErrorCode::InvalidSource, true},
        {[](Track& track) { track.isEncrypted = true; }, ErrorCode::Encrypted, false},
        {[](Track& track) { track.hasForeignBaseLayer = true; }, ErrorCode::Unsupported, false},
        {[](Track& track) { track.width = 70'000; }, ErrorCode::Unsupported, false},
    };
    const Track better = changed(videoTrack(3840, 2160), [](Track& track) { track.isDefault = true; });
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        const Track bad = changed(videoTrack(), each.change);
        const auto alone = planExport(fileOf({bad, soundTrack()}), low, {});
        ASSERT_FALSE(alone);
        EXPECT_EQ(alone.error().code, each.alone) << alone.error().text;
        const auto among = planExport(fileOf({bad, soundTrack(), videoTrack(640, 480), better}), low, {});
        EXPECT_EQ(among ? among->video.track : 0, each.isPassedOver ? 2 : 0);
    }
}

TEST(ExportPlan, OneSoundTrackIsChosenByLanguageMarkOrPlace) {
    const Track mute = changed(soundTrack("fra"), [](Track& track) { track.hasDecoder = false; });
    struct {
        std::vector<Track> sounds;
        std::vector<std::string> languages;
        std::vector<int> expected; ///< 0 is the picture
        Preset preset = medium;
    } const cases[] = {
        {{soundTrack("deu"), soundTrack("fra")}, {"fra"}, {2}},
        {{soundTrack("deu"), soundTrack("fra-ca")}, {"fra"}, {2}},
        {{soundTrack("deu", true), soundTrack("fra"), soundTrack("eng")}, {"eng", "fra"}, {3}},
        {{soundTrack("deu"), soundTrack("fra", true)}, {"eng"}, {2}},
        {{soundTrack("", true), soundTrack("fra")}, {"fra"}, {1}},
        {{soundTrack(), soundTrack()}, {"fra"}, {1}},
        {{soundTrack("deu"), mute, soundTrack("eng")}, {"fra"}, {1}},
        {{mute}, {}, {}},
        {{soundTrack(), mute, soundTrack()}, {}, {1, 3}, passthrough},
    };
    for (const auto& each : cases) {
        std::vector<Track> tracks{videoTrack()};
        tracks.insert(tracks.end(), each.sounds.begin(), each.sounds.end());
        std::vector<int> chosen;
        for (const AudioPlan& sound : planOf(fileOf(tracks), each.preset, each.languages).sounds)
            chosen.push_back(sound.track);
        EXPECT_EQ(chosen, each.expected) << &each - cases;
    }
}

TEST(ExportPlan, SoundIsCopiedOnlyWhereEveryPlayerTakesIt) {
    const char* const mp4 = "mov,mp4";
    const char* const mkv = "matroska,webm";
    constexpr auto aac = AV_CODEC_ID_AAC;
    constexpr auto pcm = AV_CODEC_ID_PCM_S16LE;
    struct {
        const char* container;
        Preset preset;
        AVCodecID codec;
        int profile, channels, kilobits;
        bool isCopied;
    } const cases[] = {
        {mp4, medium, aac, 1, 2, 160, true},  {mp4, medium, aac, 1, 2, 161, false},
        {mp4, low, aac, 1, 1, 80, true},      {mp4, highest, aac, 1, 6, 160, false},
        {mp4, low, aac, 1, 1, 81, false},     {mp4, highest, aac, 4, 2, 96, false},
        {mp4, highest, aac, 1, 2, 0, false},  {mkv, passthrough, aac, 4, 6, 600, true},
        {mkv, highest, aac, 1, 2, 96, false}, {mp4, passthrough, pcm, 1, 2, 1536, false},
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
    const Track joined = changed(videoTrack(), [](Track& track) { track.hasOneDescription = false; });
    EXPECT_EQ(planOf(fileOf({joined}), passthrough).video.treatment, Treatment::Encode);
}

TEST(ExportPlan, TheSoundIsOfTheSameProgramAndForAll) {
    const auto sound = [](std::uint64_t programs, bool isForSome) {
        return changed(soundTrack("deu"), [&](Track& track) {
            track.programs = programs;
            track.isForSome = isForSome;
        });
    };
    const Track video = changed(videoTrack(), [](Track& track) { track.programs = 0b10; });
    const auto chosen = [&](const std::vector<Track>& tracks) {
        return planOf(fileOf(tracks), low, {"deu"}).sounds.at(0).track;
    };
    EXPECT_EQ(chosen({video, sound(0b01, false), sound(0b10, true), sound(0b11, false)}), 3);
    EXPECT_EQ(chosen({video, sound(0b01, false), sound(0b10, true)}), 2);
    EXPECT_EQ(chosen({video, sound(0b01, false)}), 1);
}

TEST(ExportPlan, TheEarliestOfPictureAndKeptSoundIsZero) {
    const double cases[][4] = {{2, 1.5, 1, 1.5}, {1, 1.5, 2, 1}, {1, -0.02, 1, 0}, {2, 2, 1, 2}};
    for (const auto& [picture, kept, left, expected] : cases) {
        MediaInfo info = fileOf({videoTrack(), soundTrack("deu"), soundTrack("fra")});
        info.tracks[0].startSeconds = picture;
        info.tracks[1].startSeconds = kept;
        info.tracks[2].startSeconds = left;
        EXPECT_DOUBLE_EQ(planOf(info, low, {"deu"}).zeroSeconds, expected);
    }
    // A broadcast's clock may go round soon after the beginning.
    MediaInfo broadcast = fileOf({videoTrack()}, "mpegts");
    broadcast.tracks[0].startSeconds = -33;
    EXPECT_EQ(planOf(broadcast, low).zeroSeconds, -33);
}

TEST(ColourPlan, SaysWhatIsMeantAndWhatBecomesOfIt) {
    struct {
        int height;
        AVColorSpace matrix;
        AVColorTransferCharacteristic transfer;
        AVColorSpace meant, result;
        bool needsToneMapping = false;
    } const cases[] = {
        {1080, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_UNSPECIFIED, AVCOL_SPC_BT709, AVCOL_SPC_BT709},
        {576, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_UNSPECIFIED, AVCOL_SPC_BT470BG, AVCOL_SPC_BT470BG},
        {480, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_BT709, AVCOL_SPC_SMPTE170M, AVCOL_SPC_SMPTE170M},
        {1080, AVCOL_SPC_SMPTE170M, AVCOL_TRC_UNSPECIFIED, AVCOL_SPC_SMPTE170M, AVCOL_SPC_SMPTE170M},
        {240, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_SMPTE2084, AVCOL_SPC_BT2020_NCL, AVCOL_SPC_BT709, true},
        {240, AVCOL_SPC_UNSPECIFIED, AVCOL_TRC_ARIB_STD_B67, AVCOL_SPC_BT2020_NCL, AVCOL_SPC_BT709, true},
        {1080, AVCOL_SPC_BT2020_NCL, AVCOL_TRC_BT2020_10, AVCOL_SPC_BT2020_NCL, AVCOL_SPC_BT709},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        const FrameHandle frame = makeFrame();
        frame->format = AV_PIX_FMT_YUV420P;
        frame->width = 640;
        frame->height = each.height;
        frame->colorspace = each.matrix;
        frame->color_trc = each.transfer;
        const ColourPlan plan = planColour(*frame);
        EXPECT_EQ(plan.source.matrix, each.meant);
        EXPECT_EQ(plan.result.matrix, each.result);
        EXPECT_EQ(plan.needsToneMapping, each.needsToneMapping);
        EXPECT_EQ(plan.result.range, AVCOL_RANGE_MPEG);
    }
}

using Estimate = MovieTest;

TEST_F(Estimate, OfAnOrdinaryClipIsRightWithinAFactorOfAboutTwo) {
    make("still.png", "-f lavfi -i mandelbrot=s=1920x1080:r=1:start_scale=0.05:maxiter=300 -frames:v 1");
    const std::string pan =
        "movie=still.png,loop=-1:1:0,setpts=N/30/TB,crop=1280:720:100+n*4:50+n,noise=alls=3:allf=t";
    const std::string motion = "testsrc2=s=1280x720:r=30,noise=alls=4:allf=t";
    for (const std::string& scene : {pan, motion}) {
        const std::string source =
            make("source.mp4", "-f lavfi -i \"" + scene + "\" " + tone("0.2", 1) +
                                   "-t 1 -c:v libx264 -preset ultrafast -crf 20 -c:a aac -b:a 128k");
        const OpenFile file(source, O_RDONLY);
        MediaInfo info = probe(**Source::open(file.descriptor(), Source::Detail::Headers));
        for (const Preset preset : {low, medium, passthrough}) {
            const auto expected = static_cast<double>(estimateBytes(info, planOf(info, preset)));
            const auto real = static_cast<double>(contents(convert(source, preset).path).size());
            EXPECT_GT(expected / real, 1 / 2.3) << static_cast<int>(preset);
            EXPECT_LT(expected / real, 2.3) << static_cast<int>(preset);
        }
        info.durationUnits = 0;
        EXPECT_EQ(estimateBytes(info, planOf(info, medium)), 0);
    }
}
