// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/RunLoop.h"

#include "platform/foundation/Bundle.h"
#include "platform/linux/multimedia/MultimediaPlayback.h"
#include "window/PlayerLayerItem.h"

#include <QQuickWindow>
#include <gtest/gtest.h>

namespace reelsmith {
namespace {

bool isNear(const QColor& seen, const QColor& wanted) {
    constexpr int tolerance = 12; // of a lossy video
    return std::abs(seen.red() - wanted.red()) < tolerance &&
           std::abs(seen.green() - wanted.green()) < tolerance &&
           std::abs(seen.blue() - wanted.blue()) < tolerance;
}

// The first intro video: its uppermost wave, and the disc of its play mark, which comes late.
TEST(PlayerLayerItem, ShowsWhatIsPlayedFromItsBeginningAndWhereItIsSought) {
    AVPlayer::setPlaybackFactory([] { return std::make_unique<MultimediaPlayback>(); });
    QQuickWindow window;
    window.resize(270, 480);
    window.show();
    AVPlayer player;
    AVPlayerLayer layer(player);
    layer.setVideoGravity(AVPlayerLayer::VideoGravity::ResizeAspectFill);
    PlayerLayerItem item(window.contentItem());
    item.setSize(window.size());
    item.setPlayerLayer(&layer);
    const auto isSeen = [&window](QPoint place, const QColor& wanted) {
        return runLoopUntil([&] { return isNear(window.grabWindow().pixelColor(place), wanted); });
    };

    player.replaceCurrentItem({*Bundle::urlForResource("intro0", "mp4")});
    player.play();
    EXPECT_TRUE(isSeen({135, 10}, "#1B9590"));
    EXPECT_FALSE(isNear(window.grabWindow().pixelColor(195, 216), "white"));
    player.seek({4, 1});
    EXPECT_TRUE(isSeen({195, 216}, "white"));

    AVPlayer::setPlaybackFactory([] { return std::make_unique<VideoPlayback>(); });
}

} // namespace
} // namespace reelsmith
