// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/UIDocumentPickerViewController.h"

#include "platform/foundation/URLs.h"
#include "platform/screens/PlatformServices.h"
#include "platform/screens/UIDocumentPickerCell.h"

#include <QDir>
#include <QLocale>
#include <algorithm>
#include <utility>

namespace reelsmith {

namespace {

const QString cellIdentifier = QStringLiteral("document");
const QString placesTitle = QStringLiteral("Files");
constexpr qreal rowHeight = 60;

DocumentChooser& dialog() {
    return *PlatformServices::shared().documentChooser;
}

// "~" stands for the home folder.
QString shortPath(const QUrl& folder) {
    const QString path = folder.toLocalFile();
    const QString home = QDir::homePath();
    const bool isAtHome = path == home || path.startsWith(home + QLatin1Char('/'));
    return isAtHome ? QLatin1Char('~') + path.mid(home.size()) : path;
}

QString detail(const FolderListing::Entry& entry) {
    const QLocale locale;
    const QString date = locale.toString(entry.modified.date(), QLocale::ShortFormat);
    if (entry.isFolder)
        return entry.modified.isValid() ? date : shortPath(entry.url);
    return locale.formattedDataSize(entry.sizeBytes, 1, QLocale::DataSizeSIFormat) + QStringLiteral(" · ") +
           date;
}

} // namespace

UIDocumentPickerViewController::UIDocumentPickerViewController(const QStringList& documentTypes, Mode)
    : m_types(documentTypes), m_isListing(!dialog().isAvailable()), m_listing(m_types) {
    setTitle(placesTitle);
    m_emptyStateView.setHidden(true);
    m_activityIndicatorView.setHidden(true);
    if (!m_isListing) {
        setModalPresentationStyle(UIModalPresentationStyle::OverCurrentContext);
        setModalTransitionStyle(UIModalTransitionStyle::CrossDissolve);
    }
}

UIDocumentPickerViewController::~UIDocumentPickerViewController() {
    if (m_isDialogShown)
        dialog().cancel();
}

void UIDocumentPickerViewController::viewDidLoad() {
    m_tableView.setRowHeight(rowHeight);
    m_tableView.registerClass<UIDocumentPickerCell>(cellIdentifier);
    m_tableView.setDataSource(this);
    m_tableView.setDelegate(this);
    if (m_isListing)
        startListing();
}

void UIDocumentPickerViewController::viewDidAppear() {
    if (!m_isListing && !m_isDialogShown)
        askDialog();
}

void UIDocumentPickerViewController::askDialog() {
    m_isDialogShown = true;
    const DocumentChooser::Kind videos{QStringLiteral("Videos"), {}, m_types.mimeTypes()};
    dialog().choose(QStringLiteral("Choose a video"), {videos},
                    [self = QPointer(this)](DocumentChooser::Answer answer, const QUrl& file) {
                        if (!self)
                            return;
                        self->m_isDialogShown = false;
                        if (answer == DocumentChooser::Answer::Picked)
                            self->pick(file);
                        else if (answer == DocumentChooser::Answer::Cancelled)
                            self->dismiss(Animated::Yes);
                        else
                            self->startListing();
                    });
}

void UIDocumentPickerViewController::startListing() {
    m_isListing = true;
    open({});
}

void UIDocumentPickerViewController::open(const QUrl& folder) {
    m_folder = folder;
    setTitle(isAtPlaces() ? placesTitle : folder.fileName());
    emit listingChanged();
    show(isAtPlaces() ? FolderListing::places() : FolderListing::Entries());
    m_emptyStateView.setHidden(true);
    if (isAtPlaces())
        return;
    m_activityIndicatorView.setHidden(false);
    m_listing.read(folder, [this, folder](const FolderListing::Entries& entries) {
        if (folder == m_folder)
            show(entries);
    });
}

void UIDocumentPickerViewController::show(const FolderListing::Entries& entries) {
    m_entries = entries;
    m_tableView.reloadData();
    m_emptyStateView.setHidden(!m_entries.isEmpty());
    m_activityIndicatorView.setHidden(true);
}

int UIDocumentPickerViewController::tableViewNumberOfRowsInSection(UITableView&, int) {
    return static_cast<int>(m_entries.size());
}

CellsView::Cell UIDocumentPickerViewController::tableViewCellForRowAt(UITableView& table,
                                                                      const IndexPath& path) {
    CellsView::Cell cell = table.dequeueReusableCell(cellIdentifier);
    auto& row = *qobject_cast<UIDocumentPickerCell*>(cell.get());
    const FolderListing::Entry& entry = m_entries.at(path.row());
    row.nameLabel()->setText(entry.name);
    row.detailLabel()->setText(detail(entry));
    row.setFolder(entry.isFolder);
    return cell;
}

void UIDocumentPickerViewController::tableViewDidSelectRowAt(UITableView& table, const IndexPath& path) {
    table.deselectRow(path, Animated::Yes);
    const FolderListing::Entry entry = m_entries.at(path.row());
    if (entry.isFolder)
        open(entry.url);
    else
        pick(entry.url);
}

void UIDocumentPickerViewController::pick(const QUrl& document) {
    if (isBeingDismissed())
        return;
    if (UIDocumentPickerDelegate* delegate = m_delegate.get())
        delegate->documentPickerDidPickDocumentsAt(*this, {document});
    else
        dismiss(Animated::Yes);
}

void UIDocumentPickerViewController::cancelTapped() {
    if (m_isDialogShown)
        dialog().cancel();
    else if (!isBeingDismissed())
        dismiss(Animated::Yes);
}

bool UIDocumentPickerViewController::goBack() {
    const FolderListing::Entries places = FolderListing::places();
    const bool isAtPlace = std::ranges::find(places, m_folder, &FolderListing::Entry::url) != places.end();
    if (isAtPlaces() || isBeingDismissed())
        cancelTapped();
    else
        open(isAtPlace ? QUrl() : m_folder.adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash));
    return true;
}

} // namespace reelsmith
