// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/Messages.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <set>

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

TEST(Messages, EveryKindArrivesAsItWasSentAndOnlyWhole) {
    std::set<std::size_t> kinds;
    for (const Message& message : examples) {
        SCOPED_TRACE(message.index());
        kinds.insert(message.index());
        std::vector<std::byte> bytes = encode(message);
        EXPECT_EQ(decoded(bytes), message);
        for (std::size_t size = 0; size < bytes.size(); ++size)
            EXPECT_FALSE(decode(bytes.data(), size)) << "cut to " << size;
        bytes.push_back(std::byte{0});
        EXPECT_FALSE(decoded(bytes));
    }
    EXPECT_EQ(kinds.size(), std::variant_size_v<Message>);
}

TEST(Messages, ValuesOutOfRangeAreNoMessage) {
    const auto properties = [](Time duration, double width = 1, std::int64_t bytes = 1) {
        const VideoTrackProperties track{width, 1, {1, 0, 0, 1}};
        return AssetProperties{true, true, duration, track, {1, 2, bytes, 3}, ""};
    };
    ASSERT_TRUE(decoded(encode(properties({}))));
    const Message cases[] = {
        ThumbnailRequest{{}, 0, 500},
        ThumbnailRequest{{}, 500, -1},
        ThumbnailRequest{{0, -1}, 500, 500},
        ExportRequest{static_cast<Preset>(reelsmith::media::presetCount), {}},
        properties({-1, 600}),
        properties({1, -600}),
        properties({std::numeric_limits<std::int64_t>::max(), 1}),
        properties({}, std::numeric_limits<double>::infinity()),
        properties({}, 1, -1),
        ThumbnailReply{-1, 1, ""},
        ExportProgress{-0.01},
        ExportProgress{1.01},
        ExportProgress{std::numeric_limits<double>::quiet_NaN()},
    };
    for (const Message& message : cases)
        EXPECT_FALSE(decoded(encode(message))) << &message - cases;
}

TEST(Messages, HostileBytesAreNoMessage) {
    EXPECT_FALSE(decoded({std::byte{std::variant_size_v<Message>}}));
    EXPECT_FALSE(decoded({std::byte{255}}));
    std::vector<std::byte> neitherTrueNorFalse = encode(AssetProperties{});
    neitherTrueNorFalse[1] = std::byte{2};
    EXPECT_FALSE(decoded(neitherTrueNorFalse));
    std::vector<std::byte> endlessText = encode(ExportFinished{"", ""});
    std::fill(endlessText.begin() + 1, endlessText.end(), std::byte{0xff});
    EXPECT_FALSE(decoded(endlessText));
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
