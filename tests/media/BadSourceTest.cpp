// SPDX-License-Identifier: GPL-3.0-or-later
#include "MovieTest.h"

#include "media/FrameGrabber.h"

#include <sys/inotify.h>

using namespace reelsmith::media;

namespace {

class BadSource : public MovieTest {
protected:
    /// What an export and a thumbnail of the file fail with; they have to agree.
    ErrorCode errorOf(const std::string& source) const {
        const OpenFile file(source, O_RDONLY);
        const auto grabbed = grabFrame(file.descriptor(), 0, {500, 500});
        const Exported exported = tryExport(source);
        EXPECT_FALSE(exported.result);
        EXPECT_FALSE(grabbed);
        if (exported.result || grabbed)
            return ErrorCode::Internal;
        EXPECT_EQ(grabbed.error().code, exported.result.error().code);
        EXPECT_FALSE(exported.result.error().text.empty());
        return exported.result.error().code;
    }

    /// An MP4 file whose first track lists no samples.
    static std::string withoutSamples(std::string file) {
        const std::size_t table = file.find("stbl");
        for (const char* list : {"stts", "ctts", "stsc", "stco", "stss", "stsz"}) {
            const std::size_t box = file.find(list, table);
            if (box != std::string::npos)
                file.replace(box + (list == std::string("stsz") ? 12 : 8), 4, 4, '\0');
        }
        return file;
    }

    const std::string clip = clockPictures(25, 2) + tone("0.2", 2) + "-c:v libx264 -g 12 -c:a aac ";
};

} // namespace

TEST_F(BadSource, WhatIsNoVideoIsRefused) {
    const std::string jpeg = contents(make("a.jpg", "-f lavfi -i testsrc=s=64x48 -frames:v 1"));
    const std::string silent = contents(make("audio.mp4", tone("0.2", 1) + "-c:a aac"));
    struct {
        std::string name, contents;
    } const cases[] = {
        {"empty", ""},
        {"text", "This is no video.\n"},
        {"zeros", std::string(100'000, '\0')},
        {"subtitles", "1\n00:00:00,000 --> 00:00:02,000\nHello\n"},
        {"jpeg", jpeg},
        {"png", contents(make("a.png", "-f lavfi -i testsrc=s=64x48 -frames:v 1"))},
        {"gif", contents(make("a.gif", "-f lavfi -i testsrc=s=64x48:d=1 -frames:v 5"))},
        {"webp", "RIFF\x24\x00\x00\x00WEBPVP8 "},
        {"svg", "<svg xmlns='http://www.w3.org/2000/svg'/>"},
        {"audio", silent},
        {"mp3 with cover",
         contents(make("a.mp3", "-i a.jpg " + tone("0.2", 1) + "-c:v copy -c:a libmp3lame"))},
        {"only a header", silent.substr(0, 40)},
        {"no samples", withoutSamples(contents(make("none.mp4", clockPictures(25, 1) + "-c:v libx264")))},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(errorOf(write("source.mp4", each.contents)), ErrorCode::InvalidSource);
    }
}

TEST_F(BadSource, AFileThatNamesAnotherOpensNothing) {
    const std::string good = make("good.mp4", clip);
    const std::string playlist = "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n";
    std::string outside = contents(good);
    const int watch = ::inotify_init1(IN_NONBLOCK);
    ASSERT_GE(::inotify_add_watch(watch, good.c_str(), IN_OPEN), 0);
    const std::vector<std::string> lists{
        playlist + "good.mp4\n#EXT-X-ENDLIST\n",
        playlist + "file://" + good + "\n#EXT-X-ENDLIST\n",
        std::string("ffconcat version 1.0\nfile good.mp4\n"),
        "#EXTM3U\n" + good + "\n",
        "<?xml version=\"1.0\"?><MPD><Period><AdaptationSet "
        "mimeType=\"video/mp4\"><Representation><BaseURL>" +
            good + "</BaseURL></Representation></AdaptationSet></Period></MPD>",
        "v=0\nc=IN IP4 127.0.0.1\nm=video 5004 RTP/AVP 96\na=rtpmap:96 H264/90000\n",
        "[playlist]\nFile1=" + good + "\nNumberOfEntries=1\n",
        "RTSPtext\nrtsp://localhost/" + good + "\n"};
    for (const std::string& text : lists) {
        SCOPED_TRACE(text);
        EXPECT_EQ(errorOf(write("list.mp4", text)), ErrorCode::InvalidSource);
    }
    // A movie whose samples lie in a second file.
    const std::size_t reference = outside.find("url \0\0\0\1", 0, 8);
    ASSERT_NE(reference, std::string::npos);
    outside.replace(reference, 8, std::string("url \0\0\0\0", 8));
    tryExport(write("outside.mp4", outside));
    char event[4096];
    EXPECT_LT(::read(watch, event, sizeof event), 0) << "somebody has opened it";
    ::close(watch);
}

TEST_F(BadSource, AVideoNobodyCanReadHereIsTold) {
    const std::string protectedClip =
        make("protected.mp4",
             clip + "-encryption_scheme cenc-aes-ctr -encryption_key 00112233445566778899aabbccddeeff "
                    "-encryption_kid 00112233445566778899aabbccddeeff");
    EXPECT_EQ(errorOf(protectedClip), ErrorCode::Encrypted);
    EXPECT_EQ(errorOf(write("huge.y4m",
                            "YUV4MPEG2 W12000 H12000 F25:1 Ip C420jpeg\nFRAME\n" + std::string(9999, 'x'))),
              ErrorCode::Unsupported);
    // A codec that FFmpeg knows by name only.
    std::string unknown = contents(make("unknown.mp4", clip + "-an"));
    unknown.replace(unknown.find("avc1", unknown.find("stsd")), 4, "vvc1");
    EXPECT_EQ(errorOf(write("unknown.mp4", unknown)), ErrorCode::Unsupported);
}

TEST_F(BadSource, ADamagedFileIsConvertedAsFarAsItDecodes) {
    const std::string whole = contents(make("whole.mp4", clip + "-movflags +faststart"));
    const std::string matroska = contents(make("whole.mkv", clip));
    const std::string stream = contents(make("whole.ts", clip));
    const auto holed = [](std::string file) { return file.replace(file.size() / 2, 2000, 2000, '\x5a'); };
    const std::vector<Preset> encoded{Preset::Low};
    const std::vector<Preset> either{Preset::Low, Preset::Passthrough};
    struct {
        std::string name, contents;
        const std::vector<Preset>& presets;
        double least, most;
    } const cases[] = {
        {"cut.mp4", whole.substr(0, whole.size() * 6 / 10), either, 0.4, 1.8},
        {"cut.mkv", matroska.substr(0, matroska.size() * 6 / 10), either, 0.4, 1.8},
        {"cut.ts", stream.substr(0, stream.size() * 6 / 10), either, 0.4, 1.8},
        {"holed.mp4", holed(whole), encoded, 1.9, 2.1},
        {"holed.mkv", holed(matroska), encoded, 1.9, 2.1},
        {"holed.ts", holed(stream), either, 1.9, 2.1},
    };
    for (const auto& each : cases) {
        for (const Preset preset : each.presets) {
            SCOPED_TRACE(each.name);
            const Movie movie = convert(write(each.name, each.contents), preset);
            EXPECT_GE(movie.duration, each.least);
            EXPECT_LE(movie.duration, each.most);
            EXPECT_GT(static_cast<double>(picturesOf(movie.path).size()), 0.7 * 25 * each.least);
        }
    }
    EXPECT_EQ(errorOf(write("headless.mp4", contents(make("tail.mp4", clip)).substr(0, 3000))),
              ErrorCode::InvalidSource);
}

TEST_F(BadSource, AFullDiskFailsTheExport) {
    const OpenFile source(make("source.mp4", clip), O_RDONLY);
    const OpenFile full("/dev/full", O_RDWR);
    const auto result = exportVideo({source.descriptor(), full.descriptor(), Preset::Low, {}}, [](double) {});
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ErrorCode::WriteFailed);
}
