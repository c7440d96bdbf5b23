// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/Animated.h"
#include "platform/uikit/CellsView.h"
#include "platform/uikit/IndexPath.h"
#include "platform/uikit/UITableViewCell.h"

#include <QVariantList>

namespace reelsmith {

class UITableView;

/// Says what a table shows.
class UITableViewDataSource {
public:
    virtual ~UITableViewDataSource() = default;

    virtual int tableViewNumberOfSections(UITableView& /*table*/) { return 1; }
    virtual int tableViewNumberOfRowsInSection(UITableView& table, int section) = 0;

    /// Empty for no header.
    virtual QString tableViewTitleForHeaderInSection(UITableView& /*table*/, int /*section*/) { return {}; }

    /// The cell for a row, dequeued from the table or new; never null.
    virtual CellsView::Cell tableViewCellForRowAt(UITableView& table, const IndexPath& path) = 0;
};

/// Hears what the user does with a table, and says how high its rows are.
class UITableViewDelegate {
public:
    virtual ~UITableViewDelegate() = default;

    /// In points.
    virtual qreal tableViewHeightForRowAt(UITableView& table, const IndexPath& path);
    virtual void tableViewDidSelectRowAt(UITableView& /*table*/, const IndexPath& /*path*/) {}
};

/// Rows below each other, in sections with headers. Main thread.
class UITableView : public reelsmith::CellsView {
    Q_OBJECT
    Q_PROPERTY(QVariantList headers READ headers NOTIFY layoutChanged)
    Q_PROPERTY(qreal rowHeight READ rowHeight WRITE setRowHeight NOTIFY layoutChanged)

public:
    using CellsView::CellsView;

    /// Both ask for everything anew.
    void setDataSource(const WeakDelegate<UITableViewDataSource>& source);
    void setDelegate(const WeakDelegate<UITableViewDelegate>& delegate);

    /// In points; for rows whose height the delegate leaves open, and for all headers.
    qreal rowHeight() const { return m_rowHeight; }
    void setRowHeight(qreal height);
    void setSectionHeaderHeight(qreal height) { m_headerHeight = height; }

    void deselectRow(const IndexPath& path, Animated animated);

    /// For each header: "title", and "frame" in the content.
    const QVariantList& headers() const { return m_headers; }

protected:
    Layout makeLayout(qreal width) override;
    Cell makeCell(int number) override;
    void didSelect(int number) override;

private:
    IndexPath pathOf(int number) const;
    int numberOf(const IndexPath& path) const;
    void addHeader(const QString& title, qreal width, Layout& layout);

    WeakDelegate<UITableViewDataSource> m_dataSource;
    WeakDelegate<UITableViewDelegate> m_delegate;
    qreal m_rowHeight = 44;
    qreal m_headerHeight = 44;
    std::vector<int> m_rowCounts; // of each section
    QVariantList m_headers;
};

} // namespace reelsmith
