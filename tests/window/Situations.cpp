// SPDX-License-Identifier: GPL-3.0-or-later
#include "Situations.h"

#include "conversion/ProgressViewController.h"
#include "conversion/VideoConversionViewController.h"
#include "fakes/ScriptedMailDrafts.h"
#include "fakes/ScriptedPlayback.h"
#include "library/ConvertedVideosViewController.h"
#include "library/VideoPlayer.h"
#include "library/VideosViewController.h"
#include "platform/screens/AVPlayerViewController.h"
#include "platform/screens/MFMailComposeViewController.h"
#include "platform/screens/PlatformServices.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/screens/UIDocumentPickerViewController.h"
#include "platform/screens/UIImagePickerController.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UICollectionViewCell.h"
#include "platform/uikit/UIContextMenuController.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITabBarController.h"
#include "platform/uikit/UITableViewCell.h"
#include "settings/FeedbackViewController.h"
#include "settings/OnboardingViewControllerV2.h"
#include "sources/ConversionQualityViewController.h"
#include "sources/URLInputViewController.h"

#include <gtest/gtest.h>

namespace reelsmith {

namespace {

UINavigationController& tab(TestApplication& application, int index) {
    auto& tabs = *qobject_cast<UITabBarController*>(&application.root());
    tabs.setSelectedIndex(index);
    return *qobject_cast<UINavigationController*>(tabs.viewControllers().at(static_cast<std::size_t>(index)));
}

void stillConverting(TestApplication& application) {
    qobject_cast<VideoConversionViewController*>(tab(application, 0).topViewController())
        ->stillConvertingView()
        ->setHidden(false);
}

void libraryGrid(TestApplication& application) {
    tab(application, 1).setRootViewController(std::make_unique<VideosViewController>());
}

void libraryOptions(TestApplication& application) {
    auto* const list = qobject_cast<ConvertedVideosViewController*>(tab(application, 1).topViewController());
    EXPECT_TRUE(runLoopUntil([list] { return list->collectionView()->cell(0) != nullptr; }));
    list->collectionView()->cell(0)->tap();
    application.await<VideoOptionsViewController>();
}

void libraryDetail(TestApplication& application) {
    libraryGrid(application);
    UINavigationController& stack = tab(application, 1);
    auto* const grid = qobject_cast<VideosViewController*>(stack.topViewController());
    EXPECT_TRUE(runLoopUntil([grid] { return grid->collectionView()->cell(0) != nullptr; }));
    grid->collectionView()->cell(0)->tap();
    EXPECT_TRUE(runLoopUntil([&stack] { return !stack.isToolbarHidden(); }));
}

void playing(TestApplication& application) {
    AVPlayer::setPlaybackFactory([] { return std::make_unique<ScriptedPlayback>(); });
    VideoPlayer::play(QUrl("file:///" + longName + ".mp4"), application.root());
    AVPlayer::setPlaybackFactory([] { return std::make_unique<VideoPlayback>(); });
    application.await<AVPlayerViewController>()->playPauseTapped();
}

void photoLibrary(TestApplication& application) {
    homeFile("Videos/" + longName + ".mp4", "thumbnail picture 64 36\n");
    application.tap("photoLibrary");
    auto* const picker = application.await<UIImagePickerController>();
    EXPECT_TRUE(runLoopUntil([picker] { return picker->collectionView()->cell(0) != nullptr; }));
}

void emptyPhotoLibrary(TestApplication& application) {
    application.tap("photoLibrary");
    auto* const picker = application.await<UIImagePickerController>();
    EXPECT_TRUE(runLoopUntil([picker] { return !picker->emptyStateView()->isHidden(); }));
}

void places(TestApplication& application) {
    application.tap("files");
    application.await<UIDocumentPickerViewController>();
}

void folder(TestApplication& application) {
    homeFile("Videos/" + longName + ".mp4");
    places(application);
    auto* const picker = application.await<UIDocumentPickerViewController>();
    picker->tableView()->cell(1)->tap();
    EXPECT_TRUE(runLoopUntil([picker] { return picker->tableView()->count() == 1; }));
}

void nameAndQuality(TestApplication& application) {
    homeFile("Documents/Reelsmith/outputs/" + longName + ".mp4");
    application.open(homeFile("Videos/" + longName + ".mp4"));
    auto* const card = application.await<ConversionQualityViewController>();
    EXPECT_TRUE(runLoopUntil([card] { return card->estimates().first() != "–"; }));
    EXPECT_FALSE(card->warningLabel()->isHidden());
}

void downloading(TestApplication& application) {
    application.tap("webAddress");
    auto* const card = application.await<URLInputViewController>();
    card->textField()->setText("https://example.org/" + QString(longName).replace(' ', '-') + ".mp4");
    application.tap("download");
    application.await<ProgressViewController>();
}

void converting(TestApplication& application) {
    application.open(homeFile("Videos/" + longName + ".mp4", "export progress 0.5\n" + awaitingEnd()));
    application.await<ConversionQualityViewController>();
    application.tap("convert");
    auto* const card = application.await<ProgressViewController>();
    EXPECT_TRUE(runLoopUntil([card] { return card->progressLabel()->text() == "50%"; }));
}

void shareSheet(TestApplication& application) {
    const QUrl file = QUrl::fromLocalFile(homeFile("Videos/" + longName + ".mp4"));
    application.present(std::make_unique<UIActivityViewController>(QList<QUrl>{file}));
}

void licences(TestApplication& application) {
    application.tap("tab2");
    // Far down in a low window.
    QMetaObject::invokeMethod(tab(application, 2).topViewController(), "licencesTapped");
    EXPECT_TRUE(runLoopUntil([&] { return tab(application, 2).topViewController()->isVisible(); }));
}

void writingAMail(TestApplication& application) {
    PlatformServices::shared().mailDrafts = std::make_unique<ScriptedMailDrafts>();
    application.present(std::make_unique<MFMailComposeViewController>());
}

void onboarding(TestApplication& application) {
    application.screens().setRootViewController(std::make_unique<OnboardingViewControllerV2>());
    application.tap("continue");
    application.tap("continue");
}

void feedback(TestApplication& application) {
    application.present(std::make_unique<FeedbackViewController>());
    application.tap("3 stars");
}

void failure(TestApplication& application) {
    auto alert = std::make_unique<UIAlertController>(
        "Conversion Failed", "Reelsmith could not convert the selected video.\nReason: Invalid file",
        UIAlertController::Style::Alert);
    alert->addAction("ok", UIAlertController::ActionStyle::Default);
    application.present(std::move(alert));
}

void question(TestApplication& application) {
    auto alert = std::make_unique<UIAlertController>("Stop converting?", "The video is not ready yet.",
                                                     UIAlertController::Style::Alert);
    alert->addAction("stop", UIAlertController::ActionStyle::Destructive);
    alert->addAction("keep converting", UIAlertController::ActionStyle::Cancel);
    application.present(std::move(alert));
}

void choice(TestApplication& application) {
    auto sheet = std::make_unique<UIAlertController>("Which one?", "Either will do.",
                                                     UIAlertController::Style::ActionSheet);
    sheet->addAction("this", UIAlertController::ActionStyle::Default);
    sheet->addAction("that", UIAlertController::ActionStyle::Destructive);
    sheet->addAction("none", UIAlertController::ActionStyle::Cancel);
    application.present(std::move(sheet));
}

template<typename Cell>
void contextMenu(TestApplication& application) {
    static Cell cell;
    const UIContextMenuConfiguration menu{{},
                                          {{"share", "share", UIAction::Style::Normal, {}},
                                           {"delete", "trash", UIAction::Style::Destructive, {}}}};
    UIContextMenuController::show(menu, cell, {200, 500, 160, 90});
    application.settle();
}

} // namespace

const std::vector<Situation>& situations() {
    static const std::vector<Situation> all{
        {"start", [](TestApplication&) {}},
        {"still converting", stillConverting},
        {"library list", [](TestApplication& application) { application.tap("tab1"); }},
        {"library grid", libraryGrid},
        {"options of a video", libraryOptions},
        {"details of a video", libraryDetail},
        {"playing", playing},
        {"settings", [](TestApplication& application) { application.tap("tab2"); }},
        {"licences", licences},
        {"writing a mail", writingAMail},
        {"feedback", feedback},
        {"onboarding", onboarding},
        {"photo library", photoLibrary},
        {"empty photo library", emptyPhotoLibrary},
        {"places", places},
        {"folder", folder},
        {"web address", [](TestApplication& application) { application.tap("webAddress"); }},
        {"name and quality", nameAndQuality},
        {"downloading", downloading},
        {"converting", converting},
        {"share sheet", shareSheet},
        {"failure", failure},
        {"question", question},
        {"choice", choice},
        {"menu of a tile", contextMenu<UICollectionViewCell>},
        {"menu of a row", contextMenu<UITableViewCell>},
    };
    return all;
}

} // namespace reelsmith
