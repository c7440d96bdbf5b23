// SPDX-License-Identifier: GPL-3.0-or-later
// player_bench ROUNDS: opens the first video of this home folder's library in the real window, plays a little
// of it and goes back, again and again. Prints the memory that is resident after every tenth round, in
// megabytes.
#include "fakes/RunLoop.h"
#include "fakes/ScriptedHTTPClient.h"

#include "app/MainTabBarController.h"
#include "library/CustomPlayerVC.h"
#include "library/VideoDetailViewController.h"
#include "library/VideoPlayer.h"
#include "library/VideosViewController.h"
#include "platform/linux/multimedia/MultimediaPlayback.h"
#include "platform/uikit/UINavigationController.h"
#include "settings/UserSettings.h"
#include "window/Appearance.h"
#include "window/WindowApplication.h"

#include <QFile>
#include <QGuiApplication>
#include <cstdio>

using namespace reelsmith;

namespace {

double residentMegabytes() {
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The system does not tell how much memory is resident");
    const QString status = QString::fromLatin1(file.readAll());
    return status.section(QStringLiteral("VmRSS:"), 1).trimmed().section(QLatin1Char(' '), 0, 0).toDouble() /
           1024;
}

void await(const char* what, const std::function<bool()>& isSo) {
    if (!runLoopUntil(isSo))
        qFatal("Waited in vain for %s", what);
}

/// Once nothing is under way any more that takes some.
double restingMegabytes() {
    constexpr int looks = 100;
    double last = 0;
    int same = 0;
    await("rest", [&] {
        const double now = residentMegabytes();
        same = now == last ? same + 1 : 0;
        last = now;
        return same >= looks;
    });
    return last;
}

class Benchmark {
public:
    Benchmark() : m_application(LinuxPlatform(), std::make_shared<ScriptedHTTPClient>()) {
        m_application.appearance().setDurationsScale(0);
        UserSettings::shared().setDidShowOnboarding(true);
        m_application.launch({});
        auto grid = std::make_unique<VideosViewController>();
        m_grid = grid.get();
        tabs().setSelectedIndex(1);
        stack().setRootViewController(std::move(grid));
        await("the library", [this] { return m_grid->collectionView()->cell(0) != nullptr; });
    }

    void round() {
        m_grid->collectionView()->cell(0)->tap();
        await("the details", [this] { return detail() != nullptr && !stack().isToolbarHidden(); });
        VideoPlayer::play(detail()->video().url(), *detail());
        await("the player", [this] { return isIdle() && player() != nullptr; });
        player()->playPauseTapped();
        await("the video", [this] { return player()->positionSlider()->value() > 0; });
        player()->closeTapped();
        await("the player's end", [this] { return isIdle() && player() == nullptr; });
        stack().goBack();
        await("the library again", [this] { return detail() == nullptr && stack().isToolbarHidden(); });
    }

private:
    MainTabBarController& tabs() {
        return *qobject_cast<MainTabBarController*>(m_application.delegate().window()->rootViewController());
    }
    UINavigationController& stack() {
        return *qobject_cast<UINavigationController*>(tabs().viewControllers().at(1));
    }
    VideoDetailViewController* detail() {
        return qobject_cast<VideoDetailViewController*>(stack().topViewController());
    }
    CustomPlayerVC* player() {
        return qobject_cast<CustomPlayerVC*>(m_application.delegate().window()->frontmost());
    }
    bool isIdle() { return m_application.delegate().window()->presentations().isIdle(); }

    WindowApplication m_application;
    VideosViewController* m_grid = nullptr;
};

} // namespace

int main(int argc, char** argv) {
    MultimediaPlayback::chooseEngine();
    const QGuiApplication application(argc, argv);
    AVPlayer::setPlaybackFactory([] { return std::make_unique<MultimediaPlayback>(); });
    const int rounds = QCoreApplication::arguments().value(1).toInt();
    Benchmark benchmark;
    for (int round = 1; round <= rounds; ++round) {
        benchmark.round();
        if (round % 10 == 0)
            std::printf("%d %.1f\n", round, restingMegabytes());
    }
    return 0;
}
