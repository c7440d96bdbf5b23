// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/VideoConversionViewController.h"

#include "conversion/ConversionRun.h"
#include "conversion/DownloadRun.h"
#include "conversion/VideoConverter.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/screens/SKStoreReviewController.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UITabBarController.h"
#include "settings/UserSettings.h"

#include <utility>

namespace reelsmith {

namespace {

constexpr qreal designedTop = 20;
constexpr qreal smallScreenHeight = 568;

} // namespace

VideoConversionViewController::VideoConversionViewController() : m_topConstraint(designedTop) {}

VideoConversionViewController::~VideoConversionViewController() = default;

void VideoConversionViewController::viewDidLoad() {
    AppFileOpener::setDelegate(this);
    setTitle(QStringLiteral("Convert to MP4"));
    m_stillConvertingView.setHidden(true);
}

void VideoConversionViewController::viewWillAppear() {
    m_topConstraint.setConstant(UIScreen::main().size().height() <= smallScreenHeight ? 0 : designedTop);
}

void VideoConversionViewController::viewDidAppear() {
    takePendingFile();
    if (UserSettings::shared().achievedSuccess())
        SKStoreReviewController::requestReview();
}

void VideoConversionViewController::takePendingFile() {
    if (const std::optional<QUrl> pending = AppFileOpener::pendingURL())
        fileReceived(*pending);
}

void VideoConversionViewController::fileReceived(const QUrl& url) {
    chooseQuality(url);
    AppFileOpener::setPendingURL(std::nullopt);
}

void VideoConversionViewController::localMediaFilesTapped() {
    auto picker = std::make_unique<UIImagePickerController>();
    picker->setSourceType(UIImagePickerController::SourceType::photoLibrary);
    picker->setMediaTypes({kUTTypeMovie});
    picker->setDelegate(this);
    present(std::move(picker), Animated::Yes);
}

void VideoConversionViewController::importFromFilesTapped() {
    auto picker = std::make_unique<UIDocumentPickerViewController>(
        QStringList{QStringLiteral("public.movie"), QStringLiteral("org.matroska.mkv")},
        UIDocumentPickerViewController::Mode::Import);
    picker->setAllowsMultipleSelection(false);
    picker->setDelegate(this);
    present(std::move(picker), Animated::Yes);
}

// Without a tab bar nothing is shown.
void VideoConversionViewController::presentFromTabBar(std::unique_ptr<UIViewController> card,
                                                      Completion completion) {
    UITabBarController* const tabs = navigationController() ? tabBarController() : nullptr;
    if (tabs != nullptr)
        tabs->present(std::move(card), Animated::Yes, std::move(completion));
}

void VideoConversionViewController::videoURLTapped() {
    auto card = std::make_unique<URLInputViewController>();
    card->setDelegate(this);
    presentFromTabBar(std::move(card));
}

void VideoConversionViewController::imagePickerControllerDidFinishPickingMediaWithInfo(
    UIImagePickerController& picker, const QVariantMap& info) {
    const QVariant media = info.value(UIImagePickerControllerMediaURL);
    if (media.userType() != QMetaType::QUrl)
        return;
    const QUrl url = media.toUrl();
    picker.dismiss(Animated::Yes);
    chooseQuality(url);
}

void VideoConversionViewController::imagePickerControllerDidCancel(UIImagePickerController& picker) {
    picker.dismiss(Animated::Yes);
}

void VideoConversionViewController::documentPickerDidPickDocumentsAt(UIDocumentPickerViewController& picker,
                                                                     const QList<QUrl>& urls) {
    if (urls.isEmpty())
        return;
    picker.dismiss(Animated::Yes, [self = QPointer(this), url = urls.first()] {
        if (self)
            self->chooseQuality(url);
    });
}

void VideoConversionViewController::dismissPresentedScreen(Completion completion) {
    dismiss(Animated::Yes, std::move(completion));
}

void VideoConversionViewController::chooseQuality(const QUrl& source) {
    auto card = std::make_unique<ConversionQualityViewController>(source);
    card->setDelegate(this);
    presentFromTabBar(std::move(card));
}

void VideoConversionViewController::urlEntered(const QUrl& url) {
    (new DownloadRun(*this, url))->start();
}

void VideoConversionViewController::qualityPicked(const QUrl& source, const QString& name,
                                                  ConversionQuality quality) {
    // Nobody hears of a conversion whose converter is replaced, so its card goes too.
    if (m_run && m_run->card() != nullptr)
        dismissCard(m_run->card(), {});
    m_converter = VideoConverter::make(source, quality);
    m_run = std::make_unique<ConversionRun>(*this, m_converter);
    m_run->start(name);
}

ProgressViewController*
VideoConversionViewController::presentProgress(ProgressViewController::DisplayMode mode,
                                               Completion completion) {
    auto card = std::make_unique<ProgressViewController>(mode);
    card->setDelegate(this);
    m_progressController = card.get();
    presentFromTabBar(std::move(card), std::move(completion));
    return m_progressController;
}

void VideoConversionViewController::dismissCard(const QPointer<ProgressViewController>& card,
                                                Completion completion) {
    if (card)
        card->dismiss(Animated::Yes, std::move(completion));
    else if (completion)
        DispatchQueue::main().async(std::move(completion));
}

void VideoConversionViewController::cancelled(ProgressViewController& card) {
    card.dismiss(Animated::Yes);
    if (m_progressController == &card)
        m_progressController = nullptr;
    updateStillConverting();
}

void VideoConversionViewController::dropConverter(const std::shared_ptr<VideoConverter>& converter) {
    if (m_converter != converter)
        return;
    m_converter.reset();
    m_run.reset();
    updateStillConverting();
}

bool VideoConversionViewController::isConverting() const {
    return m_run && m_run->isConverting();
}

void VideoConversionViewController::updateStillConverting() {
    m_stillConvertingView.setHidden(!isConverting() || isShowing(m_run->card()));
}

void VideoConversionViewController::keepOpen(std::unique_ptr<SecurityScopedAccess> access) {
    m_openAccesses.push_back(std::move(access));
}

void VideoConversionViewController::presentFailure(const QString& verb,
                                                   const std::optional<QString>& reason) {
    QString message = QStringLiteral("Reelsmith could not ") + verb + QStringLiteral(" the selected video.");
    if (reason)
        message += QStringLiteral("\nReason: ") + *reason;
    present(UIAlertController::notice(QStringLiteral("Conversion Failed"), message), Animated::Yes);
}

} // namespace reelsmith
