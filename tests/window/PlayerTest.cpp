// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestApplication.h"

#include "fakes/ScriptedPlayback.h"
#include "library/VideoPlayer.h"
#include "platform/linux/multimedia/MultimediaPlayback.h"
#include "platform/screens/AVPlayerViewController.h"
#include "settings/OnboardingViewControllerV2.h"

#include <QDir>
#include <QProcess>
#include <algorithm>
#include <gtest/gtest.h>

namespace reelsmith {
namespace {

/// A film made by ffmpeg: red, from its third second on green, from its fifth to its end in the sixth blue.
QUrl film() {
    const QString path = QDir::homePath() + "/Documents/Reelsmith/outputs/Três cores – три.mp4";
    const QString colour = "color=%1:s=1280x720:r=10:d=2[%1];";
    EXPECT_EQ(QProcess::execute(
                  "ffmpeg", {"-v", "error", "-f", "lavfi", "-i", "sine=d=6", "-filter_complex",
                             colour.arg("red") + colour.arg("lime") + colour.arg("blue") +
                                 "[red][lime][blue]concat=n=3,scale=out_color_matrix=bt709,format=yuv420p[v]",
                             "-map", "[v]", "-map", "0", "-colorspace", "bt709", path}),
              0);
    return QUrl::fromLocalFile(path);
}

/// The player in the window, with a real film.
class PlayerScreen : public testing::Test {
protected:
    PlayerScreen() {
        AVPlayer::setPlaybackFactory([] { return std::make_unique<MultimediaPlayback>(); });
    }
    ~PlayerScreen() override {
        AVPlayer::setPlaybackFactory([] { return std::make_unique<VideoPlayback>(); });
    }

    AVPlayerViewController& open(const QUrl& url) {
        VideoPlayer::play(url, m_application.root());
        return m_application.await<AVPlayerViewController>();
    }
    /// At `place`: above the button in the middle.
    bool isSeen(const QColor& wanted, QPoint place = {390 / 2, 844 / 2 - 60}) {
        return runLoopUntil([&] {
            const QColor seen = m_application.window().grabWindow().pixelColor(place);
            m_seen = seen.name();
            return std::abs(seen.red() - wanted.red()) < 4 && std::abs(seen.green() - wanted.green()) < 4 &&
                   std::abs(seen.blue() - wanted.blue()) < 4;
        });
    }

    bool isVisible(const QString& control) {
        return std::ranges::any_of(
            visibleItems(m_application.frontItem()),
            [&control](const QQuickItem* item) { return item->property("label") == control; });
    }

    QString m_seen;
    TestApplication m_application;
};

TEST_F(PlayerScreen, BeginsPausedSeeksAndStopsAtTheLastPictureFromWhichItStartsOver) {
    AVPlayerViewController& player = open(film());
    EXPECT_TRUE(isSeen("#FF0000")) << qPrintable(m_seen);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_EQ(player.positionLabel()->text() + player.durationLabel()->text(), "00:0000:06");
    player.positionMoved(3);
    EXPECT_TRUE(isSeen("#00FF00")) << qPrintable(m_seen);
    player.positionMoved(6);
    EXPECT_TRUE(isSeen("#0000FF")) << qPrintable(m_seen);
    player.positionMoved(3.5);
    EXPECT_TRUE(isSeen("#00FF00")) << qPrintable(m_seen);
    player.positionMoved(5.5);
    m_application.tap("Play");
    EXPECT_TRUE(player.isPlaying());
    EXPECT_TRUE(runLoopUntil([&player] { return !player.isPlaying(); }));
    EXPECT_EQ(player.positionLabel()->text(), "00:06");
    EXPECT_TRUE(isSeen("#0000FF")) << qPrintable(m_seen);
    player.positionMoved(1);
    EXPECT_TRUE(isSeen("#FF0000")) << qPrintable(m_seen);
    player.positionMoved(5.8);
    m_application.press(Qt::Key_Space);
    EXPECT_TRUE(runLoopUntil([&player] { return player.player()->state().isAtEnd(); }));
    m_application.press(Qt::Key_Space);
    EXPECT_TRUE(player.isPlaying());
    EXPECT_TRUE(isSeen("#FF0000")) << qPrintable(m_seen);
    EXPECT_TRUE(runLoopUntil([&player] { return player.positionSlider()->value() > 0.2; }));
    EXPECT_TRUE(player.isPlaying());
    m_application.press(Qt::Key_Escape);
    m_application.settle();
    EXPECT_EQ(&m_application.frontScreen(), &m_application.root());
}

TEST_F(PlayerScreen, TheIntroductionFillsTheWindow) {
    m_application.screens().setRootViewController(std::make_unique<OnboardingViewControllerV2>());
    EXPECT_TRUE(isSeen("#1B9590", {135, 10})) << qPrintable(m_seen);
}

TEST_F(PlayerScreen, SaysWhyAFileCannotBePlayed) {
    AVPlayerViewController& player =
        open(QUrl::fromLocalFile(homeFile("Documents/Reelsmith/outputs/Text.mp4", "text")));
    EXPECT_EQ(player.errorLabel()->text(), "Could not open file");
    EXPECT_FALSE(isVisible("Play") || isVisible("Position"));
    EXPECT_FALSE(player.player()->state().isPlaying);
    m_application.press(Qt::Key_Space);
    m_application.press(Qt::Key_Right);
    m_application.tap("Close");
    m_application.settle();
    EXPECT_EQ(&m_application.frontScreen(), &m_application.root());
}

TEST_F(PlayerScreen, LeavesTheVideoAloneUntilItIsTouchedOrTheKeyboardIsUsed) {
    AVPlayer::setPlaybackFactory([] { return std::make_unique<ScriptedPlayback>(); });
    AVPlayerViewController& player = open(QUrl("file:///Summer.mp4"));
    player.setControlsTime(std::chrono::milliseconds(1));
    const QPointF close = sceneRectangle(m_application.control("Close")).center();
    const auto areHidden = [this] { return !isVisible("Close") && !isVisible("Pause"); };
    m_application.tap("Play");
    EXPECT_TRUE(runLoopUntil(areHidden));
    player.setControlsTime(std::chrono::hours(1));
    m_application.tapAt(close);
    EXPECT_TRUE(runLoopUntil([this] { return isVisible("Close"); }));
    m_application.tapAt(close + QPointF(0, 100));
    EXPECT_TRUE(runLoopUntil(areHidden));
    m_application.press(Qt::Key_Tab);
    EXPECT_TRUE(isVisible("Close"));
    player.pictureTapped();
    EXPECT_TRUE(isVisible("Close"));
    EXPECT_EQ(&m_application.frontScreen(), &player);
}

TEST_F(PlayerScreen, LiesOnItsSideUntilTheWindowDoesOrItGoes) {
    AVPlayer::setPlaybackFactory([] { return std::make_unique<ScriptedPlayback>(); });
    const auto closeIsAt = [this] { return sceneRectangle(m_application.control("Close")).center(); };
    open(QUrl("file:///Summer.mp4"));
    EXPECT_EQ(closeIsAt(), QPointF(32, 32));
    m_application.tap("Turn");
    EXPECT_EQ(closeIsAt(), QPointF(390 - 32, 32));
    m_application.resize({844, 390});
    EXPECT_EQ(closeIsAt(), QPointF(32, 32));
    m_application.tap("Turn");
    EXPECT_EQ(closeIsAt(), QPointF(844 - 32, 32));
    m_application.tap("Close");
    m_application.settle();
    open(QUrl("file:///Summer.mp4"));
    EXPECT_EQ(closeIsAt(), QPointF(32, 32));
}

} // namespace
} // namespace reelsmith
