// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/ConversionQuality.h"
#include "platform/foundation/WeakDelegate.h"
#include "platform/screens/VideoPreview.h"
#include "platform/uikit/ImageView.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/ModalScreenDelegate.h"
#include "platform/uikit/SegmentedControl.h"
#include "platform/uikit/TextField.h"
#include "platform/uikit/UIViewController.h"
#include "sources/SourceDetails.h"

#include <QUrl>
#include <optional>

namespace reelsmith {

/// Takes what the user has decided for a conversion.
class QualityPickerDelegate : public ModalScreenDelegate {
public:
    /// `name`: of the result, without its ending; not empty.
    virtual void qualityPicked(const QUrl& source, const QString& name, ConversionQuality quality) = 0;
};

/// The card that asks for the name and the quality of a result. Main thread.
class ConversionQualityViewController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(reelsmith::View* cardView READ cardView CONSTANT)
    Q_PROPERTY(reelsmith::View* bgView READ bgView CONSTANT)
    Q_PROPERTY(reelsmith::TextField* filenameTextField READ filenameTextField CONSTANT)
    Q_PROPERTY(reelsmith::SegmentedControl* qualitySegmentedView READ qualitySegmentedView CONSTANT)
    Q_PROPERTY(reelsmith::Label* sourceNameLabel READ sourceNameLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* sourceDetailsLabel READ sourceDetailsLabel CONSTANT)
    Q_PROPERTY(reelsmith::ImageView* thumbImageView READ thumbImageView CONSTANT)
    Q_PROPERTY(reelsmith::Label* warningLabel READ warningLabel CONSTANT)
    Q_PROPERTY(QStringList estimates READ estimates NOTIFY estimatesChanged)

public:
    explicit ConversionQualityViewController(const QUrl& videoURL);
    explicit ConversionQualityViewController(const NSCoder& coder) : UIViewController(coder) {}

    View* cardView() { return &m_cardView; }
    View* bgView() { return &m_bgView; }
    TextField* filenameTextField() { return &m_filenameTextField; }
    SegmentedControl* qualitySegmentedView() { return &m_qualitySegmentedView; }
    Label* sourceNameLabel() { return &m_sourceNameLabel; }
    Label* sourceDetailsLabel() { return &m_sourceDetailsLabel; }
    ImageView* thumbImageView() { return &m_thumbImageView; }
    /// What the user should know before pressing "Convert"; hidden when there is nothing.
    Label* warningLabel() { return &m_warningLabel; }
    /// The size of the result at each quality: "≈ 38 MB", "–" while unknown.
    QStringList estimates() const;

    ConversionQuality quality() const { return m_quality; }
    const QUrl& videoURL() const { return m_videoURL; }
    void setDelegate(const WeakDelegate<QualityPickerDelegate>& delegate) { m_delegate = delegate; }

    Q_INVOKABLE void qualityTapped();
    /// Hands everything over and leaves; an alert, and the card stays, if there is no name.
    Q_INVOKABLE void convertTapped();
    /// Leaves without a word to anyone.
    Q_INVOKABLE void requestDismiss();

signals:
    void estimatesChanged();

protected:
    void viewDidLoad() override;
    void viewWillAppear() override;

private:
    QString defaultName() const;
    void showDetails(const SourceDetails& details);
    void updateWarning();

    View m_cardView;
    View m_bgView;
    TextField m_filenameTextField;
    SegmentedControl m_qualitySegmentedView;
    Label m_sourceNameLabel;
    Label m_sourceDetailsLabel;
    ImageView m_thumbImageView;
    Label m_warningLabel;
    ConversionQuality m_quality = ConversionQuality::low;
    const QUrl m_videoURL;
    SourceDetails m_details;
    std::optional<VideoPreview> m_preview;
    WeakDelegate<QualityPickerDelegate> m_delegate;
};

} // namespace reelsmith
