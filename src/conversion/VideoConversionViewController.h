// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/ConversionQuality.h"
#include "conversion/ProgressViewController.h"
#include "library/CanShareFiles.h"
#include "platform/foundation/SecurityScopedAccess.h"
#include "platform/screens/UIDocumentPickerViewController.h"
#include "platform/screens/UIImagePickerController.h"
#include "platform/uikit/LayoutConstraint.h"
#include "platform/uikit/UIViewController.h"
#include "sources/AppFileOpener.h"
#include "sources/ConversionQualityViewController.h"
#include "sources/URLInputViewController.h"

#include <memory>
#include <optional>
#include <vector>

namespace reelsmith {

class ConversionRun;
class VideoConverter;

/// The screen that every conversion starts from. Main thread.
class VideoConversionViewController : public reelsmith::UIViewController,
                                      public CanShareFiles,
                                      public UIImagePickerControllerDelegate,
                                      public UIDocumentPickerDelegate,
                                      public URLInputViewControllerDelegate,
                                      public QualityPickerDelegate,
                                      public ProgressViewControllerDelegate,
                                      public AppFileOpenerDelegate {
    Q_OBJECT
    Q_PROPERTY(reelsmith::LayoutConstraint* topConstraint READ topConstraint CONSTANT)
    Q_PROPERTY(reelsmith::View* stillConvertingView READ stillConvertingView CONSTANT)

public:
    VideoConversionViewController();
    ~VideoConversionViewController() override;

    LayoutConstraint* topConstraint() { return &m_topConstraint; }
    View* stillConvertingView() { return &m_stillConvertingView; } ///< seen while a conversion has no card
    ProgressViewController* progressController() const { return m_progressController; }

    /// Whether `card`, which may be null, stands there, be it behind another; false after a cancel.
    static bool isShowing(const ProgressViewController* card) {
        return card != nullptr && !card->isBeingDismissed();
    }
    const std::shared_ptr<VideoConverter>& converter() const { return m_converter; }
    bool isConverting() const;

    Q_INVOKABLE void localMediaFilesTapped();
    Q_INVOKABLE void importFromFilesTapped();
    Q_INVOKABLE void videoURLTapped();

    /// Asks for name and quality of what `source` is to become.
    void chooseQuality(const QUrl& source);

    // Of a run's steps.
    ProgressViewController* presentProgress(ProgressViewController::DisplayMode mode, Completion completion);
    void dismissCard(const QPointer<ProgressViewController>& card, Completion completion);
    void dropConverter(const std::shared_ptr<VideoConverter>& converter);
    void presentFailure(const QString& verb, const std::optional<QString>& reason);
    void keepOpen(std::unique_ptr<SecurityScopedAccess> access);
    void updateStillConverting();

    void imagePickerControllerDidFinishPickingMediaWithInfo(UIImagePickerController& picker,
                                                            const QVariantMap& info) override;
    void imagePickerControllerDidCancel(UIImagePickerController& picker) override;
    void documentPickerDidPickDocumentsAt(UIDocumentPickerViewController& picker,
                                          const QList<QUrl>& urls) override;
    void dismissPresentedScreen(Completion completion) override;
    void urlEntered(const QUrl& url) override;
    void qualityPicked(const QUrl& source, const QString& name, ConversionQuality quality) override;
    void cancelled(ProgressViewController& card) override;
    void fileReceived(const QUrl& url) override;

protected:
    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    UIViewController& sharingScreen() override { return *this; }

private:
    void takePendingFile();
    void presentFromTabBar(std::unique_ptr<UIViewController> card, Completion completion = {});

    LayoutConstraint m_topConstraint;
    View m_stillConvertingView;
    QPointer<ProgressViewController> m_progressController;
    std::shared_ptr<VideoConverter> m_converter;
    std::unique_ptr<ConversionRun> m_run;
    std::vector<std::unique_ptr<SecurityScopedAccess>> m_openAccesses;
};

} // namespace reelsmith
