// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/FrameClock.h"
#include "media/PacketClock.h"
#include "media/SoundPlacer.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

using namespace reelsmith::media;

namespace {

/// Where pictures at these times, of this length, end up; those not shown or dropped are missing.
std::vector<std::int64_t> stamped(const FrameClock::Settings& settings,
                                  const std::vector<std::int64_t>& times, std::int64_t duration) {
    FrameClock clock(settings);
    std::vector<std::int64_t> kept;
    for (const std::int64_t time : times) {
        const FrameHandle frame = makeFrame();
        frame->best_effort_timestamp = time;
        frame->pkt_duration = duration;
        if (clock.stamp(*frame) && clock.keep(*frame))
            kept.push_back(frame->pts);
    }
    return kept;
}

struct Piece {
    int track;
    double seconds;
};

/// The decoding times of a transport stream's packets once mended.
std::vector<double> mended(const std::vector<Piece>& packets, const char* container = "mpegts") {
    AVFormatContext* context = avformat_alloc_context();
    context->iformat = av_find_input_format(container);
    for (int i = 0; i < 2; ++i)
        avformat_new_stream(context, nullptr)->time_base = {1, 90'000};
    PacketClock clock(context);
    std::vector<double> times;
    for (const Piece& piece : packets) {
        const PacketHandle packet = makePacket();
        packet->stream_index = piece.track;
        packet->dts = std::llround(piece.seconds * 90'000);
        packet->pts = packet->dts + 9'000;
        clock.mend(*packet);
        EXPECT_EQ(packet->pts - packet->dts, 9'000);
        times.push_back(static_cast<double>(packet->dts) / 90'000);
    }
    avformat_free_context(context);
    return times;
}

void expectNear(const std::vector<double>& found, const std::vector<double>& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(found[i], expected[i], 1e-4) << i;
}

using Runs = std::vector<std::pair<int, int>>;

/// Places pieces of 10 ms that begin at these times (in milliseconds), each filled with its number from 1 on,
/// and yields what comes out: which number for how many milliseconds, 0 being silence.
Runs placed(const std::vector<int>& starts, double zeroSeconds = 0) {
    SoundPlacer placer({1, 1000}, zeroSeconds);
    Runs heard;
    int number = 0;
    for (const int start : starts) {
        FrameHandle frame = makeFrame();
        frame->format = AV_SAMPLE_FMT_S16;
        frame->sample_rate = 8000;
        frame->nb_samples = 80;
        frame->best_effort_timestamp = start;
        av_channel_layout_default(&frame->ch_layout, 2);
        EXPECT_EQ(av_frame_get_buffer(frame.get(), 0), 0);
        auto* samples = reinterpret_cast<std::int16_t*>(frame->data[0]);
        std::fill_n(samples, 160, static_cast<std::int16_t>(++number));
        const auto take = [&heard](const AVFrame& piece) -> Result<void> {
            const auto* values = reinterpret_cast<const std::int16_t*>(piece.data[0]);
            EXPECT_EQ(piece.nb_samples % 8, 0);
            for (int i = 0; i < piece.nb_samples; i += 8) {
                if (heard.empty() || heard.back().first != values[2 * i])
                    heard.emplace_back(values[2 * i], 0);
                ++heard.back().second;
            }
            return {};
        };
        EXPECT_TRUE(placer.place(std::move(frame), take));
    }
    return heard;
}

} // namespace

TEST(FrameClock, KeepsTimesAndDropsWhatComesTwiceTooEarlyOrTooFast) {
    using Times = std::vector<std::int64_t>;
    const FrameClock::Settings plain{{1, 90'000}, 0, 25, 30, true};
    EXPECT_EQ(stamped(plain, {0, 3600, 7200}, 3600), (Times{0, 3600, 7200}));
    // Those of a webcam jitter, and are not too many.
    EXPECT_EQ(stamped(plain, {0, 2500, 6500, 8100, 9000}, 0), (Times{0, 2500, 6500, 9000}));
    const FrameClock::Settings fast{{1, 90'000}, 0, 60, 30, true};
    EXPECT_EQ(stamped(fast, {0, 2700, 5399, 8100}, 0), (Times{0, 2700, 8100}));
    EXPECT_EQ(stamped(plain, {0, 3600, 3600, 1000, 7200}, 0), (Times{0, 3600, 7200}));
    // The kept picture, not the one before, sets when the next may come.
    EXPECT_EQ(stamped(plain, {0, 1500, 3000, 4500, 6000}, 1500), (Times{0, 3000, 6000}));
    // Of pictures before zero only the one that is on at zero is shown, then.
    const FrameClock::Settings late{{1, 90'000}, 1, 25, 30, true};
    EXPECT_EQ(stamped(late, {80'000, 84'000, 88'300, 93'000}, 3600), (Times{0, 3000}));
    // A unit too coarse for a peak of 30 is refined.
    const FrameClock::Settings coarse{{1, 25}, 0, 25, 30, true};
    EXPECT_EQ(stamped(coarse, {0, 1, 2}, 1), (Times{0, 3600, 7200}));
    // Without times pictures come evenly.
    const FrameClock::Settings blind{{1, 1'200'000}, 0, 50, 60, false};
    EXPECT_EQ(stamped(blind, {AV_NOPTS_VALUE, 77, AV_NOPTS_VALUE}, 9), (Times{0, 1800, 3600}));
}

TEST(PacketClock, AJumpOfTheClockIsTakenBack) {
    // Back to the start: both tracks go on after what they had, at their distance.
    expectNear(mended({{0, 10}, {1, 10.1}, {0, 11}, {1, 11.1}, {0, 1}, {1, 1.1}, {0, 2}}),
               {10, 10.1, 11, 11.1, 12, 12.1, 13});
    // Far ahead, and back again.
    expectNear(mended({{0, 0}, {0, 1}, {1, 1}, {1, 5000}, {0, 5000}, {0, 5001}, {0, 1.5}}),
               {0, 1, 1, 1, 1, 2, 3});
    // The first packet of a track may say anything, too.
    expectNear(mended({{0, 0}, {0, 0.1}, {1, 5000}, {0, 0.2}, {1, 0.3}}), {0, 0.1, 0.1, 0.2, 0.3});
    // A pause of one track, while the other goes on, is no jump; neither is disorder.
    expectNear(mended({{0, 0}, {1, 0}, {1, 9}, {1, 18}, {0, 18}, {0, 17.5}}), {0, 0, 9, 18, 18, 17.5});
    // A container with one clock is believed.
    expectNear(mended({{0, 0}, {0, 100}, {0, 1}}, "matroska"), {0, 100, 1});
}

TEST(SoundPlacer, MakesOneRunOfPieces) {
    EXPECT_EQ(placed({0, 10, 20}), (Runs{{1, 10}, {2, 10}, {3, 10}}));
    EXPECT_EQ(placed({5, 15}), (Runs{{0, 5}, {1, 10}, {2, 10}})) << "begins late";
    EXPECT_EQ(placed({2004, 2014}, 2), (Runs{{0, 4}, {1, 10}, {2, 10}})) << "zero elsewhere";
    EXPECT_EQ(placed({-25, -15, -5, 5}), (Runs{{3, 5}, {4, 10}})) << "begins before zero";
    EXPECT_EQ(placed({0, 60, 70}), (Runs{{1, 10}, {0, 50}, {2, 10}, {3, 10}})) << "hole";
    EXPECT_EQ(placed({0, 100, 10, 60, 105, 115}), (Runs{{1, 10}, {0, 90}, {2, 10}, {5, 10}, {6, 10}}))
        << "overlap";
    // Containers round: what is off by little is neither filled nor cut.
    EXPECT_EQ(placed({0, 12, 18, 33}), (Runs{{1, 10}, {2, 10}, {3, 10}, {4, 10}}));
}
