// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Scenes.h"

#include "app/MainTabBarController.h"
#include "conversion/ProgressViewController.h"
#include "conversion/VideoConversionViewController.h"
#include "library/ConvertedVideosViewController.h"
#include "library/FileSystem.h"
#include "library/VideoPlayer.h"
#include "library/VideosViewController.h"
#include "platform/foundation/URLs.h"
#include "platform/screens/AVPlayerViewController.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/screens/VideoCollection.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UINavigationController.h"
#include "settings/FeedbackViewController.h"
#include "settings/OnboardingViewControllerV2.h"
#include "sources/URLInputViewController.h"
#include "window/WindowApplication.h"

#include <QTimer>
#include <fstream>

namespace reelsmith {

namespace {

MainTabBarController& tabs(WindowApplication& application) {
    return *qobject_cast<MainTabBarController*>(application.delegate().window()->rootViewController());
}

VideoConversionViewController& convertScreen(WindowApplication& application) {
    auto* stack = qobject_cast<UINavigationController*>(tabs(application).viewControllers().front());
    return *qobject_cast<VideoConversionViewController*>(stack->topViewController());
}

/// The newest of the made-up videos.
QUrl someVideo() {
    const std::vector<FoundVideo> videos = VideoCollection::find(VideoCollection::folders(), {});
    return videos.empty() ? QUrl() : videos.front().url;
}

void showProgress(WindowApplication& application) {
    auto card = std::make_unique<ProgressViewController>(ProgressViewController::DisplayMode::convert);
    card->setFile(QStringLiteral("Summer by the sea.mp4"), someVideo());
    ProgressViewController* const shown = card.get();
    tabs(application).present(std::move(card), Animated::No, [shown] {
        shown->progressLabel()->setText(QStringLiteral("42%"));
        shown->progressVIew()->setProgress(0.42);
        shown->remainingLabel()->setText(QStringLiteral("about 1 min left"));
    });
}

void showDownload(WindowApplication& application) {
    auto card = std::make_unique<ProgressViewController>(ProgressViewController::DisplayMode::download);
    card->setFile(QStringLiteral("summer.mp4"), std::nullopt);
    card->showBytes(12'400'000, std::nullopt);
    tabs(application).present(std::move(card), Animated::No);
}

void showOnboarding(WindowApplication& application, int page) {
    auto screen = std::make_unique<OnboardingViewControllerV2>();
    OnboardingViewControllerV2* const shown = screen.get();
    application.delegate().window()->setRootViewController(std::move(screen));
    for (int i = 0; i < page; ++i)
        shown->continueTapped();
}

void showFeedback(WindowApplication& application) {
    auto screen = std::make_unique<FeedbackViewController>();
    FeedbackViewController* const shown = screen.get();
    constexpr int fourthStar = 3;
    tabs(application).present(std::move(screen), Animated::No, [shown] {
        shown->starEvaluationView()->starSelected(fourthStar);
    });
}

void showPicker(WindowApplication& application) {
    convertScreen(application).localMediaFilesTapped();
}

void emptyLibrary() {
    for (const ConvertedVideo& video :
         FileSystem::shared().convertedVideos().value_or(QList<ConvertedVideo>()))
        FileSystem::shared().deleteVideo(video.url());
}

/// The made-up videos, as if they had been converted.
void fillLibrary() {
    emptyLibrary();
    for (const FoundVideo& video : VideoCollection::find(VideoCollection::folders(), {})) {
        const std::filesystem::path source = filePath(video.url);
        const std::filesystem::path copy =
            filePath(FileSystem::shared().outputsFolder()) / source.filename().replace_extension(".mp4");
        std::filesystem::copy_file(source, copy);
        std::filesystem::last_write_time(copy, std::filesystem::last_write_time(source));
    }
}

UINavigationController& libraryStack(WindowApplication& application) {
    tabs(application).setSelectedIndex(1);
    return *qobject_cast<UINavigationController*>(tabs(application).viewControllers().at(1));
}

void showEmptyLibrary(WindowApplication& application) {
    emptyLibrary();
    libraryStack(application);
}

ConvertedVideosViewController& showList(WindowApplication& application) {
    fillLibrary();
    return *qobject_cast<ConvertedVideosViewController*>(libraryStack(application).topViewController());
}

VideosViewController& showGrid(WindowApplication& application) {
    fillLibrary();
    auto grid = std::make_unique<VideosViewController>();
    VideosViewController* const shown = grid.get();
    libraryStack(application).setRootViewController(std::move(grid));
    return *shown;
}

/// Once the window shows cells of `view`.
void whenShown(CellsView& view, std::function<void(ReusableCell&)> act) {
    constexpr std::chrono::milliseconds pause{50};
    QTimer::singleShot(pause, &view, [&view, act = std::move(act)] {
        if (ReusableCell* cell = view.cell(1))
            act(*cell);
        else
            whenShown(view, act);
    });
}

void showOptions(WindowApplication& application) {
    whenShown(*showList(application).collectionView(), [](ReusableCell& cell) { cell.tap(); });
}

void showMenu(WindowApplication& application) {
    constexpr QPointF belowTheBar{0, 56};
    whenShown(*showGrid(application).collectionView(),
              [belowTheBar](ReusableCell& cell) { cell.openMenu(belowTheBar); });
}

void showDetail(WindowApplication& application) {
    whenShown(*showGrid(application).collectionView(), [](ReusableCell& cell) { cell.tap(); });
}

/// The player with one of the made-up videos, or one that is none, once it is up.
void showPlayer(WindowApplication& application, const QUrl& video,
                const std::function<void(AVPlayerViewController&)>& act) {
    VideoPlayer::play(video, tabs(application));
    PresentationList& list = application.delegate().window()->presentations();
    QObject::connect(
        &list, &PresentationList::changed, &list,
        [&application, act] {
            act(*qobject_cast<AVPlayerViewController*>(application.delegate().window()->frontmost()));
        },
        Qt::SingleShotConnection);
}

void seekInPlayer(AVPlayerViewController& player) {
    constexpr qreal someSeconds = 15;
    player.positionMoved(someSeconds);
}

void showBrokenVideo(WindowApplication& application) {
    fillLibrary();
    const std::filesystem::path broken = filePath(FileSystem::shared().outputsFolder()) / "Broken.mp4";
    std::ofstream(broken) << "no film";
    showPlayer(application, fileUrl(broken.string()), [](AVPlayerViewController&) {});
}

void confirmDeletion(WindowApplication& application) {
    UINavigationController& stack = libraryStack(application);
    showDetail(application);
    QObject::connect(&stack, &UINavigationController::stackChanged, &stack, [&stack] {
        if (!stack.isToolbarHidden())
            stack.topViewController()->toolbarItems().back()->tap();
    });
}

} // namespace

QMap<QString, std::function<void(WindowApplication&)>> scenes() {
    return {
        {QStringLiteral("convert"), [](WindowApplication&) {}},
        {QStringLiteral("photo-picker"), showPicker},
        {QStringLiteral("files"), [](WindowApplication& a) { convertScreen(a).importFromFilesTapped(); }},
        {QStringLiteral("url-card"), [](WindowApplication& a) { convertScreen(a).videoURLTapped(); }},
        {QStringLiteral("quality-card"),
         [](WindowApplication& a) { convertScreen(a).chooseQuality(someVideo()); }},
        {QStringLiteral("progress-card"), showProgress},
        {QStringLiteral("download-card"), showDownload},
        {QStringLiteral("share-sheet"), [](WindowApplication& a) { convertScreen(a).share(someVideo()); }},
        {QStringLiteral("failure-alert"),
         [](WindowApplication& a) {
             convertScreen(a).presentFailure(QStringLiteral("convert"), QStringLiteral("Invalid file"));
         }},
        {QStringLiteral("library-empty"), showEmptyLibrary},
        {QStringLiteral("library-list"), [](WindowApplication& a) { showList(a); }},
        {QStringLiteral("library-grid"), [](WindowApplication& a) { showGrid(a); }},
        {QStringLiteral("library-grid-menu"), showMenu},
        {QStringLiteral("options-sheet"), showOptions},
        {QStringLiteral("detail"), showDetail},
        {QStringLiteral("delete-confirm"), confirmDeletion},
        {QStringLiteral("player"), [](WindowApplication& a) { showPlayer(a, someVideo(), seekInPlayer); }},
        {QStringLiteral("player-playing"),
         [](WindowApplication& a) {
             showPlayer(a, someVideo(), [](AVPlayerViewController& player) { player.playPauseTapped(); });
         }},
        {QStringLiteral("player-error"), showBrokenVideo},
        {QStringLiteral("settings"), [](WindowApplication& a) { tabs(a).setSelectedIndex(2); }},
        {QStringLiteral("feedback"), showFeedback},
        {QStringLiteral("onboarding-0"), [](WindowApplication& a) { showOnboarding(a, 0); }},
        {QStringLiteral("onboarding-1"), [](WindowApplication& a) { showOnboarding(a, 1); }},
        {QStringLiteral("onboarding-2"), [](WindowApplication& a) { showOnboarding(a, 2); }},
    };
}

} // namespace reelsmith
