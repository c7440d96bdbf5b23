// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/ProgressDisplay.h"
#include "platform/foundation/WeakDelegate.h"
#include "platform/screens/VideoPreview.h"
#include "platform/uikit/ImageView.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/ProgressView.h"
#include "platform/uikit/UIViewController.h"

#include <QUrl>
#include <chrono>
#include <optional>

namespace reelsmith {

class ProgressViewController;

/// Is told that the user wants a card gone.
class ProgressViewControllerDelegate {
public:
    virtual ~ProgressViewControllerDelegate() = default;

    virtual void cancelled(ProgressViewController& card) = 0;
};

/// The card that shows how far a download or a conversion has come. Main thread, but for what says otherwise.
class ProgressViewController : public reelsmith::UIViewController, public ProgressDisplay {
    Q_OBJECT
    Q_PROPERTY(reelsmith::View* cardView READ cardView CONSTANT)
    Q_PROPERTY(reelsmith::Label* titleLabel READ titleLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* progressLabel READ progressLabel CONSTANT)
    Q_PROPERTY(reelsmith::ProgressView* progressVIew READ progressVIew CONSTANT)
    Q_PROPERTY(reelsmith::Label* fileNameLabel READ fileNameLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* remainingLabel READ remainingLabel CONSTANT)
    Q_PROPERTY(reelsmith::ImageView* thumbImageView READ thumbImageView CONSTANT)

public:
    enum class DisplayMode { download, convert };

    explicit ProgressViewController(DisplayMode displayMode);
    explicit ProgressViewController(const NSCoder& coder)
        : UIViewController(coder), m_displayMode(DisplayMode::download) {}

    View* cardView() { return &m_cardView; }
    Label* titleLabel() { return &m_titleLabel; }
    Label* progressLabel() { return &m_progressLabel; }
    ProgressView* progressVIew() { return &m_progressView; }
    Label* fileNameLabel() { return &m_fileNameLabel; }
    Label* remainingLabel() { return &m_remainingLabel; } ///< the time left, or how much has come
    ImageView* thumbImageView() { return &m_thumbImageView; }

    DisplayMode displayMode() const { return m_displayMode; }
    void setDelegate(const WeakDelegate<ProgressViewControllerDelegate>& delegate) { m_delegate = delegate; }

    /// Names what is made and shows the picture of the video it is made from, if any.
    void setFile(const QString& name, const std::optional<QUrl>& video);

    /// Shown later, on the main queue. Any thread. A value that is no percentage that fits into 64 bits is a
    /// fatal error.
    void updateProgress(double progress) override;

    /// How much of a download has come; without the length of the whole there is no percentage.
    void showBytes(qint64 received, const std::optional<qint64>& expected);

    Q_INVOKABLE void cancelTapped();
    bool goBack() override;

protected:
    void viewDidLoad() override;

private:
    void show(double progress, qint64 percentage);

    View m_cardView;
    Label m_titleLabel;
    Label m_progressLabel;
    ProgressView m_progressView;
    Label m_fileNameLabel;
    Label m_remainingLabel;
    ImageView m_thumbImageView;
    const DisplayMode m_displayMode;
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    std::optional<VideoPreview> m_preview;
    WeakDelegate<ProgressViewControllerDelegate> m_delegate;
};

} // namespace reelsmith
