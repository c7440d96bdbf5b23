// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Scenes.h"

#include "app/MainTabBarController.h"
#include "conversion/ProgressViewController.h"
#include "conversion/VideoConversionViewController.h"
#include "library/FileSystem.h"
#include "platform/foundation/URLs.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/screens/VideoCollection.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UINavigationController.h"
#include "settings/FeedbackViewController.h"
#include "sources/URLInputViewController.h"
#include "window/WindowApplication.h"

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

void showFeedback(WindowApplication& application) {
    auto screen = std::make_unique<FeedbackViewController>();
    FeedbackViewController* const shown = screen.get();
    constexpr int fourthStar = 3;
    tabs(application).present(std::move(screen), Animated::No,
                              [shown] { shown->starEvaluationView()->starSelected(fourthStar); });
}

void showPicker(WindowApplication& application) {
    convertScreen(application).localMediaFilesTapped();
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
        {QStringLiteral("library"), [](WindowApplication& a) { tabs(a).setSelectedIndex(1); }},
        {QStringLiteral("settings"), [](WindowApplication& a) { tabs(a).setSelectedIndex(2); }},
        {QStringLiteral("feedback"), showFeedback},
    };
}

} // namespace reelsmith
