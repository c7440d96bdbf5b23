// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/Messages.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

using namespace reelsmith::mediaworker;

namespace {

const std::vector<Message> examples = {
    ProbeRequest{},
    ThumbnailRequest{{1001, 30000}, 500, 400},
    ExportRequest{Preset::Highest, {"deu", "eng"}},
    AssetProperties{},
    AssetProperties{
        true, true, {90, 600}, VideoTrackProperties{1920, 1080, {0, 1, -1, 0}}, {1, 2, 3, 1LL << 40}, "ok"},
    ThumbnailReply{281, 500, ""},
    ThumbnailReply{0, 0, "no picture"},
    ExportProgress{0.25},
    ExportFinished{"disk full", "3 frames passed over"},
};

std::optional<Message> decoded(const std::vector<std::byte>& bytes) {
    return decode(bytes.data(), bytes.size());
}

} // namespace

TEST(Messages, EveryMessageArrivesAsItWasSent) {
    for (const Message& message : examples)
        EXPECT_EQ(decoded(encode(message)), message) << "message " << message.index();
}

TEST(Messages, EveryKindIsAmongTheExamples) {
    std::vector<bool> isSeen(std::variant_size_v<Message>);
    for (const Message& message : examples)
        isSeen[message.index()] = true;
    EXPECT_EQ(std::count(isSeen.begin(), isSeen.end(), false), 0);
}

TEST(Messages, CutOrLengthenedBytesAreNoMessage) {
    for (const Message& message : examples) {
        std::vector<std::byte> bytes = encode(message);
        for (std::size_t size = 0; size < bytes.size(); ++size)
            EXPECT_FALSE(decode(bytes.data(), size)) << "message " << message.index() << " cut to " << size;
        bytes.push_back(std::byte{0});
        EXPECT_FALSE(decoded(bytes)) << "message " << message.index();
    }
}

TEST(Messages, AnUnknownKindIsNoMessage) {
    EXPECT_FALSE(decoded({std::byte{std::variant_size_v<Message>}}));
    EXPECT_FALSE(decoded({std::byte{255}}));
}

TEST(Messages, ValuesOutOfRangeAreNoMessage) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    AssetProperties negativeDuration;
    negativeDuration.duration = {-1, 600};
    AssetProperties negativeTimescale;
    negativeTimescale.duration = {1, -600};
    AssetProperties negativeSize;
    negativeSize.estimatedBytes[2] = -1;
    AssetProperties endlessTrack;
    endlessTrack.videoTrack = VideoTrackProperties{std::numeric_limits<double>::infinity(), 1, {1, 0, 0, 1}};
    const std::vector<std::pair<std::string, Message>> cases = {
        {"no width", ThumbnailRequest{{}, 0, 500}},
        {"negative height", ThumbnailRequest{{}, 500, -1}},
        {"negative timescale", ThumbnailRequest{{0, -1}, 500, 500}},
        {"unknown preset", ExportRequest{static_cast<Preset>(reelsmith::media::presetCount), {}}},
        {"negative duration", negativeDuration},
        {"negative timescale of a duration", negativeTimescale},
        {"negative estimate", negativeSize},
        {"endless width", endlessTrack},
        {"negative picture", ThumbnailReply{-1, 1, ""}},
        {"progress below 0", ExportProgress{-0.01}},
        {"progress above 1", ExportProgress{1.01}},
        {"progress not a number", ExportProgress{nan}},
    };
    for (const auto& [name, message] : cases)
        EXPECT_FALSE(decoded(encode(message))) << name;
}

TEST(Messages, ABooleanIsZeroOrOne) {
    std::vector<std::byte> bytes = encode(AssetProperties{});
    bytes[1] = std::byte{2};
    EXPECT_FALSE(decoded(bytes));
}

TEST(Messages, ATextMayNotClaimMoreThanThereIs) {
    std::vector<std::byte> bytes = encode(ExportFinished{"", ""});
    for (std::size_t i = 1; i < bytes.size(); ++i)
        bytes[i] = std::byte{0xff};
    EXPECT_FALSE(decoded(bytes));
}

TEST(Messages, LongTextsAndListsAreCutToFitADatagram) {
    const std::string endless(100'000, 'x');
    const std::vector<Message> messages = {
        ExportFinished{endless, endless},
        ExportRequest{Preset::Low, std::vector<std::string>(1000, endless)},
        ThumbnailReply{0, 0, endless},
    };
    for (const Message& message : messages) {
        const std::vector<std::byte> bytes = encode(message);
        EXPECT_LE(bytes.size(), maximumMessageBytes) << "message " << message.index();
        EXPECT_TRUE(decoded(bytes)) << "message " << message.index();
    }
}
