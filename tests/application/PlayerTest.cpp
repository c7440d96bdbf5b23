// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "fakes/ScriptedPlayback.h"
#include "library/CustomPlayerVC.h"
#include "library/VideoPlayer.h"
#include "platform/avfoundation/AVAudioSession.h"
#include "platform/screens/PlatformServices.h"
#include "platform/uikit/UIDevice.h"

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

using std::chrono::seconds;

class RefusingServer : public AVAudioSession::Server {
    Result<void> setCategory(AVAudioSessionCategory) override { return failure(u"no"_s); }
    Result<void> setActive(bool) override { return failure(u"no"_s); }
};

struct NowPlayingTwin : NowPlaying {
    void begin(AVPlayer& player) override { m_player = &player; }
    void end() override { m_player = nullptr; }
    AVPlayer* m_player = nullptr;
};

class Player : public WholeApplicationTest {
protected:
    Player() {
        AVPlayer::setPlaybackFactory([] { return std::make_unique<ScriptedPlayback>(); });
        PlatformServices services;
        services.nowPlaying.reset(m_nowPlaying = new NowPlayingTwin);
        PlatformServices::install(std::move(services));
        UIApplication::shared().setDelegate(&m_delegate);
        UIApplication::shared().setIdleInhibitor(std::make_unique<CountingInhibitor>(m_screenHolds));
        launch();
    }
    ~Player() override {
        AVAudioSession::sharedInstance().setServer(std::make_unique<AVAudioSession::Server>());
        UIApplication::shared().setIdleInhibitor(std::make_unique<Inhibitor>());
    }

    CustomPlayerVC& play() {
        VideoPlayer::play(inOutputs(u"Summer.mp4"_s), tabs());
        return await<CustomPlayerVC>();
    }

    NowPlayingTwin* m_nowPlaying;
    int m_screenHolds = 0;
};

} // namespace

TEST_F(Player, MayTurnAndHasTheSoundFromBeforeItIsPresentedUntilItBeginsToGo) {
    AVAudioSession& session = AVAudioSession::sharedInstance();
    EXPECT_TRUE(session.setCategory(AVAudioSessionCategory::SoloAmbient) && session.setActive(false));
    for (const bool isRefused : {true, false}) {
        session.setServer(isRefused ? std::make_unique<RefusingServer>()
                                    : std::make_unique<AVAudioSession::Server>());
        EXPECT_EQ(m_delegate.supportedInterfaceOrientations(), UIInterfaceOrientationMask::Portrait);
        VideoPlayer::play(inOutputs(u"Summer.mp4"_s), tabs());
        EXPECT_EQ(m_delegate.supportedInterfaceOrientations(), UIInterfaceOrientationMask::All);
        EXPECT_EQ(session.isActive(), !isRefused);
        EXPECT_EQ(session.category() == AVAudioSessionCategory::Playback, !isRefused);
        auto& screen = await<CustomPlayerVC>();
        EXPECT_FALSE(screen.isPlaying());
        screen.turnTapped();
        EXPECT_TRUE(UIDevice::current().isLandscape());
        screen.beginAppearanceTransition(false);
        EXPECT_TRUE(m_delegate.restrictRotation());
        EXPECT_EQ(UIDevice::current().orientation(), UIDeviceOrientation::Portrait);
        screen.closeTapped();
        ASSERT_TRUE(isAtHome());
        EXPECT_TRUE(m_delegate.restrictRotation());
    }
}

TEST_F(Player, PlaysAndKeepsTheScreenOnUntilItHasGone) {
    auto& screen = play();
    EXPECT_EQ(m_nowPlaying->m_player, screen.player());
    EXPECT_EQ(m_screenHolds, 0);
    screen.playPauseTapped();
    EXPECT_EQ(m_screenHolds, 1);
    screen.beginAppearanceTransition(false);
    EXPECT_TRUE(screen.isPlaying() && m_screenHolds && m_nowPlaying->m_player);
    screen.endAppearanceTransition();
    EXPECT_FALSE(screen.isPlaying() || m_screenHolds || m_nowPlaying->m_player);
    screen.closeTapped();
    EXPECT_TRUE(isAtHome());
}

TEST_F(Player, IsSteeredByKeysAndByTheKnobForWhichItWaits) {
    auto& screen = play();
    const struct {
        int key;
        bool isPlaying;
        int seconds;
        bool isMuted;
    } steps[] = {{Qt::Key_Left, false, 0, false}, {Qt::Key_Right, false, 5, false},
                 {Qt::Key_M, false, 5, true},     {Qt::Key_Space, true, 5, true},
                 {Qt::Key_Left, true, 0, true},   {Qt::Key_M, true, 0, false}};
    for (const auto& step : steps) {
        EXPECT_TRUE(screen.keyPressed(step.key));
        EXPECT_EQ(screen.isPlaying(), step.isPlaying);
        EXPECT_EQ(screen.isMuted(), step.isMuted);
        EXPECT_EQ(screen.positionLabel()->text(), u"00:0%1"_s.arg(step.seconds));
    }
    EXPECT_EQ(screen.durationLabel()->text(), u"01:00"_s);
    EXPECT_FALSE(screen.keyPressed(Qt::Key_Tab));
    screen.scrubbingChanged(true);
    screen.positionMoved(70);
    EXPECT_EQ(screen.player()->state().position, seconds(60));
    EXPECT_TRUE(screen.isPlaying() && !screen.player()->state().isPlaying);
    screen.scrubbingChanged(false);
    EXPECT_TRUE(screen.player()->state().isPlaying);
}
