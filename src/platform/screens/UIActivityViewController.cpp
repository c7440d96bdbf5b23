// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/UIActivityViewController.h"

#include "platform/screens/PlatformServices.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIScreen.h"

#include <QFileInfo>
#include <QLocale>
#include <QVariantMap>
#include <array>
#include <utility>

namespace reelsmith {

namespace {

struct EntryText {
    QString type;
    QString title;
    QString icon;
};

const EntryText& textOf(FileSharing::Action action) {
    // In the order of the enumeration.
    static const std::array<EntryText, 5> texts{{
        {UIActivityTypeOpenWith, QStringLiteral("Open with another app"), QStringLiteral("apps")},
        {UIActivityTypeMail, QStringLiteral("Send by mail"), QStringLiteral("mail")},
        {UIActivityTypeSaveCopy, QStringLiteral("Save a copy"), QStringLiteral("save")},
        {UIActivityTypeShowInFolder, QStringLiteral("Show in folder"), QStringLiteral("files")},
        {UIActivityTypeCopyToPasteboard, QStringLiteral("Copy file"), QStringLiteral("copy")},
    }};
    return texts[static_cast<std::size_t>(action)];
}

FileSharing& sharing() {
    return *PlatformServices::shared().fileSharing;
}

} // namespace

UIActivityViewController::UIActivityViewController(const QList<QUrl>& items)
    : m_file(items.value(0)), m_isPopover(UIScreen::main().isTabletClass()) {
    setModalPresentationStyle(UIModalPresentationStyle::Popover);
}

UIActivityViewController::~UIActivityViewController() {
    if (m_isActing)
        sharing().cancel();
}

void UIActivityViewController::viewDidLoad() {
    m_nameLabel.setText(m_file.fileName());
    showFacts({});
    m_preview = std::make_unique<VideoPreview>(
        m_file, [this](const VideoPreview::Facts& facts) { showFacts(facts); });
}

void UIActivityViewController::showFacts(const VideoPreview::Facts& facts) {
    const qint64 bytes = QFileInfo(m_file.toLocalFile()).size();
    QStringList parts{QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat)};
    if (facts.seconds > 0)
        parts.prepend(VideoPreview::durationText(facts.seconds, 2));
    m_detailLabel.setText(parts.join(QStringLiteral(" · ")));
    m_thumbnailImageView.setImage(facts.picture);
}

void UIActivityViewController::setPopoverSource(const UIViewController& /*screen*/,
                                                std::optional<QRectF> rectangle) {
    m_popoverRectangle = rectangle;
}

QRectF UIActivityViewController::popoverAnchor() const {
    return m_popoverRectangle.value_or(QRectF({}, UIScreen::main().size()));
}

QList<FileSharing::Action> UIActivityViewController::actions() const {
    QList<FileSharing::Action> offered;
    for (const FileSharing::Action action : sharing().availableActions()) {
        if (!m_excludedTypes.contains(textOf(action).type))
            offered.append(action);
    }
    return offered;
}

QVariantList UIActivityViewController::entries() const {
    QVariantList list;
    for (const FileSharing::Action action : actions()) {
        const EntryText& text = textOf(action);
        list.append(QVariantMap{{QStringLiteral("title"), text.title}, {QStringLiteral("icon"), text.icon}});
    }
    return list;
}

void UIActivityViewController::perform(int index) {
    const QList<FileSharing::Action> offered = actions();
    if (m_isActing || isBeingDismissed() || index < 0 || index >= offered.size())
        return;
    setActing(true);
    sharing().perform(offered.at(index), m_file,
                      [self = QPointer(this)](FileSharing::Outcome outcome, const QString& error) {
                          if (self)
                              self->finish(outcome, error);
                      });
}

void UIActivityViewController::setActing(bool isActing) {
    m_isActing = isActing;
    emit isActingChanged();
}

void UIActivityViewController::finish(FileSharing::Outcome outcome, const QString& error) {
    setActing(false);
    if (isBeingDismissed())
        return;
    if (outcome == FileSharing::Outcome::Failed) {
        present(UIAlertController::notice(QStringLiteral("Sharing Failed"), error), Animated::Yes);
        return;
    }
    dismiss(Animated::Yes);
}

void UIActivityViewController::cancelTapped() {
    if (m_isActing)
        sharing().cancel();
    else if (!isBeingDismissed())
        dismiss(Animated::Yes);
}

bool UIActivityViewController::goBack() {
    cancelTapped();
    return true;
}

void UIActivityViewController::viewDidDisappear() {
    if (const auto handler = std::exchange(m_handler, {}))
        handler();
}

} // namespace reelsmith
