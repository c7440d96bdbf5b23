// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Scenes.h"

#include "conversion/VideoConversionViewController.h"
#include "fakes/ScriptedMailDrafts.h"
#include "library/ConvertedVideosViewController.h"
#include "library/FileSystem.h"
#include "library/VideoPlayer.h"
#include "library/VideosViewController.h"
#include "platform/foundation/URLs.h"
#include "platform/screens/AVPlayerViewController.h"
#include "platform/screens/MFMailComposeViewController.h"
#include "platform/screens/PlatformServices.h"
#include "platform/screens/VideoCollection.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIContextMenuController.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITabBarController.h"
#include "settings/FeedbackViewController.h"
#include "settings/OnboardingViewControllerV2.h"
#include "settings/SettingsViewController.h"
#include "window/WindowApplication.h"

#include <QFileInfo>
#include <fstream>

namespace reelsmith {

namespace {

using Application = WindowApplication;

void await(const std::function<bool()>& isSo) {
    if (!runLoopUntil(isSo))
        throw std::runtime_error("The scene does not come about");
}

UIWindow& window(Application& application) {
    return *application.delegate().window();
}

template<typename Screen>
Screen& front(Application& application) {
    return awaitInFront<Screen>(window(application));
}

UITabBarController& tabs(Application& application) {
    return *qobject_cast<UITabBarController*>(window(application).rootViewController());
}

UINavigationController& tab(Application& application, int index) {
    tabs(application).setSelectedIndex(index);
    return *qobject_cast<UINavigationController*>(
        tabs(application).viewControllers().at(static_cast<std::size_t>(index)));
}

VideoConversionViewController& convertScreen(Application& application) {
    return *qobject_cast<VideoConversionViewController*>(tab(application, 0).topViewController());
}

/// A cell of `view`, once the window shows it.
ReusableCell& cell(CellsView& view, int index) {
    await([&] { return view.cell(index) != nullptr; });
    return *view.cell(index);
}

/// The newest of the films.
QUrl someVideo() {
    return VideoCollection::find(VideoCollection::folders(), {}).at(0).url;
}

void showPicker(Application& application) {
    convertScreen(application).localMediaFilesTapped();
    cell(*front<UIImagePickerController>(application).collectionView(), 0);
}

void showEmptyPicker(Application& application) {
    auto picker = std::make_unique<UIImagePickerController>(std::vector<std::filesystem::path>());
    UIImagePickerController& shown = *picker;
    shown.setDelegate(&convertScreen(application));
    tabs(application).present(std::move(picker), Animated::No);
    await([&shown] { return !shown.emptyStateView()->isHidden(); });
}

UIDocumentPickerViewController& showPlaces(Application& application) {
    convertScreen(application).importFromFilesTapped();
    return front<UIDocumentPickerViewController>(application);
}

void showFolder(Application& application) {
    UIDocumentPickerViewController& picker = showPlaces(application);
    cell(*picker.tableView(), 1).tap();
    await([&] { return !picker.isAtPlaces() && picker.activityIndicatorView()->isHidden(); });
    cell(*picker.tableView(), 0);
}

void showQuality(Application& application) {
    convertScreen(application).chooseQuality(someVideo());
    const auto& card = front<ConversionQualityViewController>(application);
    await([&card] { return card.estimates().first() != "–"; });
}

ProgressViewController& showCard(Application& application, ProgressViewController::DisplayMode mode) {
    convertScreen(application).presentProgress(mode, {});
    return front<ProgressViewController>(application);
}

void showProgress(Application& application) {
    ProgressViewController& card = showCard(application, ProgressViewController::DisplayMode::convert);
    card.setFile(QFileInfo(someVideo().path()).completeBaseName() + ".mp4", someVideo());
    card.progressLabel()->setText("42%");
    card.progressVIew()->setProgress(0.42);
    card.remainingLabel()->setText("about 1 min left");
}

void showDownload(Application& application) {
    ProgressViewController& card = showCard(application, ProgressViewController::DisplayMode::download);
    card.setFile(someVideo().fileName(), std::nullopt);
    card.showBytes(12'400'000, std::nullopt);
}

void showChoice(Application& application) {
    auto sheet = std::make_unique<UIAlertController>("Which one?", "Either will do.",
                                                     UIAlertController::Style::ActionSheet);
    sheet->addAction("this", UIAlertController::ActionStyle::Default);
    sheet->addAction("that", UIAlertController::ActionStyle::Destructive);
    sheet->addAction("none", UIAlertController::ActionStyle::Cancel);
    tabs(application).present(std::move(sheet), Animated::No);
}

void showMail(Application& application) {
    PlatformServices::shared().mailDrafts = std::make_unique<ScriptedMailDrafts>();
    tabs(application).present(std::make_unique<MFMailComposeViewController>(), Animated::No);
}

/// The onboarding, some pages on.
template<int pages>
void showOnboarding(Application& application) {
    window(application).setRootViewController(std::make_unique<OnboardingViewControllerV2>());
    for (int i = 0; i < pages; ++i)
        front<OnboardingViewControllerV2>(application).continueTapped();
}

void showFeedback(Application& application) {
    tabs(application).present(std::make_unique<FeedbackViewController>(), Animated::No);
    constexpr int fourthStar = 3;
    front<FeedbackViewController>(application).starEvaluationView()->starSelected(fourthStar);
}

void emptyLibrary() {
    for (const ConvertedVideo& video :
         FileSystem::shared().convertedVideos().value_or(QList<ConvertedVideo>()))
        FileSystem::shared().deleteVideo(video.url());
}

/// The films, as if they had been converted.
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

/// The second of the tiles in the list.
ReusableCell& showList(Application& application) {
    fillLibrary();
    auto& list = *qobject_cast<ConvertedVideosViewController*>(tab(application, 1).topViewController());
    return cell(*list.collectionView(), 1);
}

/// Of those in the grid.
ReusableCell& showGrid(Application& application) {
    fillLibrary();
    auto grid = std::make_unique<VideosViewController>();
    VideosViewController& shown = *grid;
    tab(application, 1).setRootViewController(std::move(grid));
    return cell(*shown.collectionView(), 1);
}

void showOptions(Application& application) {
    showList(application).tap();
    front<VideoOptionsViewController>(application);
}

void showMenu(Application& application) {
    constexpr QPointF belowTheBar{0, 56};
    showGrid(application).openMenu(belowTheBar);
    front<UIContextMenuController>(application);
}

template<typename Cell>
void showMenuOf(Application& application) {
    static Cell cell;
    const UIContextMenuConfiguration menu{{}, {{"share", "share", UIAction::Style::Normal, {}}}};
    UIContextMenuController::show(menu, cell, {200, 500, 160, 90});
    front<UIContextMenuController>(application);
}

UINavigationController& showDetail(Application& application) {
    showGrid(application).tap();
    UINavigationController& stack = tab(application, 1);
    await([&stack] { return !stack.isToolbarHidden(); });
    return stack;
}

void confirmDeletion(Application& application) {
    showDetail(application).topViewController()->toolbarItems().back()->tap();
    front<UIAlertController>(application);
}

AVPlayerViewController& play(Application& application, const std::filesystem::path& name) {
    VideoPlayer::play(fileUrl((filePath(FileSystem::shared().outputsFolder()) / name).string()),
                      tabs(application));
    return front<AVPlayerViewController>(application);
}

AVPlayerViewController& playSomeVideo(Application& application) {
    fillLibrary();
    return play(application, filePath(someVideo()).filename().replace_extension(".mp4"));
}

void showBrokenVideo(Application& application) {
    emptyLibrary();
    std::ofstream(filePath(FileSystem::shared().outputsFolder()) / "Broken.mp4") << "no film";
    play(application, "Broken.mp4");
}

void showLicences(Application& application) {
    UINavigationController& stack = tab(application, 2);
    qobject_cast<SettingsViewController*>(stack.topViewController())->licencesTapped();
    await([&stack] { return stack.topViewController()->isVisible(); });
}

} // namespace

const QMap<QString, void (*)(WindowApplication&)>& scenes() {
    static const QMap<QString, void (*)(WindowApplication&)> all{
        {"convert", [](Application&) {}},
        {"still-converting",
         [](Application& a) { convertScreen(a).stillConvertingView()->setHidden(false); }},
        {"photo-picker", showPicker},
        {"photo-picker-empty", showEmptyPicker},
        {"files", [](Application& a) { showPlaces(a); }},
        {"folder", showFolder},
        {"url-card", [](Application& a) { convertScreen(a).videoURLTapped(); }},
        {"quality-card", showQuality},
        {"progress-card", showProgress},
        {"download-card", showDownload},
        {"share-sheet", [](Application& a) { convertScreen(a).share(someVideo()); }},
        {"failure-alert", [](Application& a) { convertScreen(a).presentFailure("convert", "Invalid file"); }},
        {"choice", showChoice},
        {"library-empty",
         [](Application& a) {
             emptyLibrary();
             tab(a, 1);
         }},
        {"library-list", [](Application& a) { showList(a); }},
        {"library-grid", [](Application& a) { showGrid(a); }},
        {"library-grid-menu", showMenu},
        {"plain-tile", showMenuOf<UICollectionViewCell>},
        {"plain-row", showMenuOf<UITableViewCell>},
        {"options-sheet", showOptions},
        {"detail", [](Application& a) { showDetail(a); }},
        {"delete-confirm", confirmDeletion},
        {"player", [](Application& a) { playSomeVideo(a).positionMoved(15); }},
        {"player-playing", [](Application& a) { playSomeVideo(a).playPauseTapped(); }},
        {"player-error", showBrokenVideo},
        {"settings", [](Application& a) { tab(a, 2); }},
        {"licences", showLicences},
        {"mail", showMail},
        {"feedback", showFeedback},
        {"onboarding-0", showOnboarding<0>},
        {"onboarding-1", showOnboarding<1>},
        {"onboarding-2", showOnboarding<2>},
    };
    return all;
}

} // namespace reelsmith
