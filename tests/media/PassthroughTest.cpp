// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include "media/BoxWalk.h"
#include "media/ExportContext.h"
#include "media/IndexShift.h"
#include "media/Probe.h"
#include "media/RangeMover.h"
#include "media/TrackCopy.h"

#include <filesystem>
#include <sys/mman.h>

using namespace reelsmith::media;
using namespace std::string_literals;

namespace {

const std::string pictures = clockPictures(25, 2);
const std::string avc = "-c:v libx264 -g 10 -bf 2 ";
const std::string hevc = "-c:v libx265 -x265-params log-level=none ";

class Passthrough : public MovieTest {
protected:
    /// The types of a file's boxes, in order.
    static std::string boxesOf(const std::string& path) {
        const OpenFile file(path, O_RDONLY);
        std::string types;
        walkBoxes(file.descriptor(), 0, ::lseek(file.descriptor(), 0, SEEK_END), [&](const Box& box) {
            types += box.type + " ";
            return true;
        });
        return types;
    }

    static void expectSamePackets(const Movie& copy, const Movie& source, double tolerance) {
        ASSERT_EQ(copy.tracks.size(), source.tracks.size());
        EXPECT_NEAR(copy.duration, source.duration, 0.006);
        for (const AVMediaType kind : {AVMEDIA_TYPE_VIDEO, AVMEDIA_TYPE_AUDIO}) {
            if (source.count(kind) == 0)
                continue;
            EXPECT_EQ(copy.track(kind).data(), source.track(kind).data());
            EXPECT_EQ(copy.track(kind).codec->codec_id, source.track(kind).codec->codec_id);
            const auto starts = copy.track(kind).starts();
            const auto expected = source.track(kind).starts();
            ASSERT_EQ(starts.size(), expected.size());
            for (std::size_t i = 0; i < starts.size(); ++i)
                ASSERT_NEAR(starts[i], expected[i], tolerance);
        }
    }
};

} // namespace

TEST_F(Passthrough, CopiesEveryPacketAndItsTime) {
    struct {
        const char* name;
        std::string options;
    } const cases[] = {
        {"avc.mp4", avc + "-c:a aac"},
        {"start.mp4", avc + "-c:a aac -movflags +faststart"},
        {"hevc.mov", hevc + "-c:a alac"},
        {"dolby.mp4", avc + "-c:a ac3"},
        {"dolbyplus.mp4", avc + "-c:a eac3"},
        {"vp9.mp4", "-c:v libvpx-vp9 -deadline realtime -cpu-used 8 -c:a libopus -strict -2"},
        {"fragmented.mp4", avc + "-c:a aac -movflags +frag_keyframe+empty_moov"},
        {"variable.mp4", "-vf \"setpts='PTS+gt(N,20)*0.5/TB'\" -vsync vfr " + avc + "-an"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const Movie source = Movie::read(make(each.name, pictures + tone("0.5", 2) + each.options));
        expectSamePackets(convert(source.path, Preset::Passthrough), source, 0.0001);
        EXPECT_EQ(boxesOf(path("result.mp4")).substr(0, 10), "ftyp moov ");
    }
}

TEST_F(Passthrough, MatroskaIsCopiedIntoAFileWithItsIndexInFront) {
    for (const std::string& options :
         {avc, hevc, "-c:v libx264 -bf 0 "s, "-c:v libx264 -bf 3 -x264-params b-pyramid=normal "s,
          "-c:v libx264 -profile:v baseline "s, "-vf \"setpts='PTS+gt(N,20)*0.5/TB'\" -vsync vfr "s + avc}) {
        SCOPED_TRACE(options);
        const Movie source =
            Movie::read(make("source.mkv", pictures + tone("0.5", 2) + options + "-c:a aac"));
        const Movie copy = convert(source.path, Preset::Passthrough);
        EXPECT_EQ(boxesOf(copy.path), "ftyp moov free free mdat ");
        // The clock of Matroska's sound and pictures begins at the first of either, MP4's at zero.
        expectSamePackets(copy, source, 0.025);
        EXPECT_EQ(av_cmp_q(copy.video().codec->sample_aspect_ratio, {1, 1}), 0);
        EXPECT_EQ(copy.video().codec->profile, source.video().codec->profile);
        EXPECT_EQ(copy.video().codec->video_delay, source.video().codec->video_delay);
    }
}

TEST_F(Passthrough, WhereTheRoomForTheIndexIsTooSmallTheMediaDataMove) {
    const Movie movie = Movie::read(make("source.mkv", "-f lavfi -i color=s=32x32:r=100:d=50 " + avc));
    const OpenFile from(movie.path, O_RDONLY);
    const OpenFile to(path("result.mp4"), O_RDWR | O_CREAT);
    const auto source = Source::open(from.descriptor(), Source::Detail::Decoded);
    ASSERT_TRUE(source);
    ExportContext context(to.descriptor(), [](double) {});
    context.writer.leaveRoomFor(1);
    const auto copy = TrackCopy::make(**source, probe(**source).tracks[0], 0, context);
    ASSERT_TRUE(copy && context.writer.sealTracks());
    while (PacketHandle packet = (*source)->readPacket())
        (*copy)->take(std::move(packet));
    ASSERT_TRUE(context.writer.finish([](double) {}));
    EXPECT_EQ(boxesOf(path("result.mp4")), "ftyp moov free free mdat ");
    EXPECT_EQ(Movie::read(path("result.mp4")).video().data(), movie.video().data());
}

TEST_F(Passthrough, KeepsWhatPlayersNeedToKnow) {
    const std::string source =
        turned(make("source.mp4", pictures + hevc + "-tag:v hev1 -vf setsar=4/3"), {0, 1, -1, 0});
    const Movie copy = convert(source, Preset::Passthrough);
    EXPECT_EQ(copy.video().codec->codec_tag, MKTAG('h', 'v', 'c', '1'));
    EXPECT_EQ(av_cmp_q(copy.video().codec->sample_aspect_ratio, {4, 3}), 0);
    const auto matrixOf = [](const std::string& file) { return file.substr(file.find("tkhd") + 44, 36); };
    EXPECT_EQ(matrixOf(contents(copy.path)), matrixOf(contents(source)));
}

TEST_F(Passthrough, ACutOffFileIsCopiedAsFarAsItHasWholePackets) {
    const Movie source = Movie::read(make("whole.mp4", pictures + avc + "-movflags +faststart"));
    const auto& samples = source.video().samples;
    const std::string whole = contents(source.path);
    const std::size_t inTheMiddle = whole.find(samples[30].data) + samples[30].data.size() / 2;
    const Movie copy = convert(write("cut.mp4", whole.substr(0, inTheMiddle)), Preset::Passthrough);
    auto expected = source.video().data();
    expected.resize(30);
    EXPECT_EQ(copy.video().data(), expected);
}

TEST_F(Passthrough, ACopyFromMp4IsNoLargerThanItsSource) {
    const std::string source = make("source.mp4", pictures + tone("0.5", 2) + avc + "-c:a aac");
    const auto size = std::filesystem::file_size(source);
    EXPECT_LE(std::filesystem::file_size(convert(source, Preset::Passthrough).path), size + 100);
}

TEST_F(Passthrough, RangesArriveWhereTheyBelongInsideAndOutsideTheKernel) {
    std::string text(5'000'000, '\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char>(i * i >> 7);
    const OpenFile from(write("from", text), O_RDONLY);
    const OpenFile near(path("near"), O_RDWR | O_CREAT);
    // The kernel copies no range between a file system and memory.
    const int far = ::memfd_create("far", MFD_CLOEXEC);
    const OpenFile farAgain("/proc/self/fd/" + std::to_string(far), O_RDWR);
    ::close(far);
    for (const int to : {near.descriptor(), farAgain.descriptor()}) {
        RangeMover mover(from.descriptor(), to);
        mover.add({100, 1'000'000, 70'000});
        mover.add({70'100, 1'070'000, 3'000'000});
        mover.add({4'999'990, 0, 10});
        double last = 0;
        ASSERT_TRUE(mover.move(36, [&last](double fraction) {
            EXPECT_GT(fraction, last);
            last = fraction;
        }));
        EXPECT_EQ(last, 1);
        std::string moved(4'070'036, '\0');
        ASSERT_EQ(::pread(to, moved.data(), moved.size() + 1, 0), std::ssize(moved));
        EXPECT_EQ(moved.substr(1'000'036), text.substr(100, 3'070'000));
        EXPECT_EQ(moved.substr(36, 10), text.substr(4'999'990));

        RangeMover beyond(from.descriptor(), to);
        beyond.add({4'999'000, 0, 2'000});
        const auto result = beyond.move(0, [](double) {});
        ASSERT_FALSE(result);
        EXPECT_EQ(result.error().code, ErrorCode::InvalidSource);
    }
}

TEST_F(Passthrough, TheIndexFollowsWhenMediaDataArePushed) {
    const std::string file =
        make("source.mp4", pictures + tone("0.5", 2) + avc + "-c:a aac -movflags +faststart");
    const Movie before = Movie::read(file);
    const OpenFile opened(file, O_RDWR);
    ASSERT_TRUE(pushMediaData(opened.descriptor(), 60'000));
    EXPECT_EQ(boxesOf(file), "ftyp moov free free mdat ");
    expectSamePackets(Movie::read(file), before, 0);
    ASSERT_TRUE(pushMediaData(opened.descriptor(), UINT32_MAX));
    EXPECT_EQ(boxesOf(file), "ftyp moov free free mdat ") << "further than the index counts";
}
