// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/screens/FolderListing.h"
#include "platform/screens/UIDocumentPickerDelegate.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

#include <QStringList>

namespace reelsmith {

/// Lets the user pick a document of certain types: in the desktop's own dialog, behind which this screen is
/// only dim, or in a list of its own where the desktop has none. Its delegate dismisses it after a pick;
/// without a pick it goes by itself. Main thread.
class UIDocumentPickerViewController : public reelsmith::UIViewController,
                                       public UITableViewDataSource,
                                       public UITableViewDelegate {
    Q_OBJECT
    Q_PROPERTY(bool isListing READ isListing NOTIFY listingChanged)
    Q_PROPERTY(bool isAtPlaces READ isAtPlaces NOTIFY listingChanged)
    Q_PROPERTY(reelsmith::UITableView* tableView READ tableView CONSTANT)
    Q_PROPERTY(reelsmith::View* emptyStateView READ emptyStateView CONSTANT)
    Q_PROPERTY(reelsmith::View* activityIndicatorView READ activityIndicatorView CONSTANT)

public:
    enum class Mode { Import };

    /// `documentTypes`: the platform's names. Documents are imported where they are, without a copy.
    UIDocumentPickerViewController(const QStringList& documentTypes, Mode mode);
    ~UIDocumentPickerViewController() override;

    void setDelegate(const WeakDelegate<UIDocumentPickerDelegate>& delegate) { m_delegate = delegate; }
    /// Neither the dialog nor the list here hands out more than one document, allowed or not.
    void setAllowsMultipleSelection(bool allows) { m_allowsMultipleSelection = allows; }
    bool allowsMultipleSelection() const { return m_allowsMultipleSelection; }

    /// Whether this screen itself lists folders.
    bool isListing() const { return m_isListing; }
    /// Whether it lists where to begin, with nothing to go back to.
    bool isAtPlaces() const { return m_folder.isEmpty(); }
    UITableView* tableView() { return &m_tableView; }
    View* emptyStateView() { return &m_emptyStateView; }
    View* activityIndicatorView() {
        return &m_activityIndicatorView;
    } ///< hidden unless folders are being read

    /// Leaves without a pick.
    Q_INVOKABLE void cancelTapped();
    /// Goes one folder up; from the places, leaves. In the dialog's case, cancels the dialog.
    Q_INVOKABLE bool goBack() override;

    int tableViewNumberOfRowsInSection(UITableView& table, int section) override;
    CellsView::Cell tableViewCellForRowAt(UITableView& table, const IndexPath& path) override;
    void tableViewDidSelectRowAt(UITableView& table, const IndexPath& path) override;

signals:
    void listingChanged();

protected:
    void viewDidLoad() override;
    void viewDidAppear() override;

private:
    void askDialog();
    void startListing();
    void open(const QUrl& folder);
    void show(const FolderListing::Entries& entries);
    void pick(const QUrl& document);

    const DocumentTypes m_types;
    bool m_allowsMultipleSelection = false;
    bool m_isListing;
    bool m_isDialogShown = false;
    WeakDelegate<UIDocumentPickerDelegate> m_delegate;
    FolderListing m_listing;
    QUrl m_folder; // empty at the places
    FolderListing::Entries m_entries;
    UITableView m_tableView;
    View m_emptyStateView;
    View m_activityIndicatorView;
};

} // namespace reelsmith
