// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/screens/FileSharing.h"
#include "platform/screens/VideoPreview.h"
#include "platform/uikit/ImageView.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/UIViewController.h"

#include <QRectF>
#include <QStringList>
#include <QUrl>
#include <QVariantList>
#include <memory>
#include <optional>

namespace reelsmith {

// What can be done with shared items, by name; some of them nowhere on this platform.
inline const QString UIActivityTypeOpenWith = QStringLiteral("OpenWith");
inline const QString UIActivityTypeMail = QStringLiteral("Mail");
inline const QString UIActivityTypeSaveCopy = QStringLiteral("SaveCopy");
inline const QString UIActivityTypeShowInFolder = QStringLiteral("ShowInFolder");
inline const QString UIActivityTypeCopyToPasteboard = QStringLiteral("CopyToPasteboard");
inline const QString UIActivityTypeAssignToContact = QStringLiteral("AssignToContact");
inline const QString UIActivityTypeSaveToCameraRoll = QStringLiteral("SaveToCameraRoll");

/// The share sheet: what the desktop can do with a file. A popover on a tablet-class window. Main thread.
class UIActivityViewController : public reelsmith::UIViewController {
    Q_OBJECT
    Q_PROPERTY(reelsmith::ImageView* thumbnailImageView READ thumbnailImageView CONSTANT)
    Q_PROPERTY(reelsmith::Label* nameLabel READ nameLabel CONSTANT)
    Q_PROPERTY(reelsmith::Label* detailLabel READ detailLabel CONSTANT)
    Q_PROPERTY(QVariantList entries READ entries CONSTANT)
    Q_PROPERTY(bool isActing READ isActing NOTIFY isActingChanged)
    Q_PROPERTY(bool isPopover READ isPopover CONSTANT)
    Q_PROPERTY(QRectF popoverAnchor READ popoverAnchor CONSTANT)

public:
    /// Files only; all entries act on the first.
    explicit UIActivityViewController(const QList<QUrl>& items);
    ~UIActivityViewController() override;

    void setExcludedActivityTypes(const QStringList& types) { m_excludedTypes = types; }

    /// Called once, when the sheet has gone, however that came about.
    void setCompletionWithItemsHandler(std::function<void()> handler) { m_handler = std::move(handler); }

    /// What a popover points to: a rectangle in the points of a screen, or all of it. All screens stand in
    /// the same column, so it does not matter which one.
    void setPopoverSource(const UIViewController& screen, std::optional<QRectF> rectangle = std::nullopt);
    bool isPopover() const { return m_isPopover; }
    QRectF popoverAnchor() const;

    ImageView* thumbnailImageView() { return &m_thumbnailImageView; }
    Label* nameLabel() { return &m_nameLabel; }
    Label* detailLabel() { return &m_detailLabel; }

    /// For each entry: "title" and "icon".
    QVariantList entries() const;
    /// Whether an entry is at work; the others must wait.
    bool isActing() const { return m_isActing; }

    /// Does what the entry at `index` says; then the sheet goes. If it fails an alert says why, and the sheet
    /// stays.
    Q_INVOKABLE void perform(int index);

    /// Leaves, or cancels the entry at work, which comes to the same.
    Q_INVOKABLE void cancelTapped();
    bool goBack() override;

signals:
    void isActingChanged();

protected:
    void viewDidLoad() override;
    void viewDidDisappear() override;

private:
    QList<FileSharing::Action> actions() const;
    void setActing(bool isActing);
    void finish(FileSharing::Outcome outcome, const QString& error);
    void showFacts(const VideoPreview::Facts& facts);

    const QUrl m_file;
    const bool m_isPopover;
    QStringList m_excludedTypes;
    std::function<void()> m_handler;
    std::optional<QRectF> m_popoverRectangle;
    ImageView m_thumbnailImageView;
    Label m_nameLabel;
    Label m_detailLabel;
    std::unique_ptr<VideoPreview> m_preview;
    bool m_isActing = false;
};

} // namespace reelsmith
