// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UITableView.h"

#include <QVariantMap>
#include <numeric>
#include <utility>

namespace reelsmith {

qreal UITableViewDelegate::tableViewHeightForRowAt(UITableView& table, const IndexPath&) {
    return table.rowHeight();
}

void UITableView::setDataSource(const WeakDelegate<UITableViewDataSource>& source) {
    m_dataSource = source;
    reloadData();
}

void UITableView::setDelegate(const WeakDelegate<UITableViewDelegate>& delegate) {
    m_delegate = delegate;
    reloadData();
}

void UITableView::setRowHeight(qreal height) {
    if (height == m_rowHeight)
        return;
    m_rowHeight = height;
    layOut();
}

CellsView::Layout UITableView::makeLayout(qreal width) {
    m_rowCounts.clear();
    m_headers.clear();
    UITableViewDataSource* source = m_dataSource.get();
    if (source == nullptr)
        return {};
    UITableViewDelegate* delegate = m_delegate.get();
    Layout layout;
    const int sectionCount = source->tableViewNumberOfSections(*this);
    for (int section = 0; section < sectionCount; ++section) {
        addHeader(source->tableViewTitleForHeaderInSection(*this, section), width, layout);
        m_rowCounts.push_back(source->tableViewNumberOfRowsInSection(*this, section));
        for (int row = 0; row < m_rowCounts.back(); ++row) {
            const IndexPath path{section, row};
            const qreal height =
                delegate == nullptr ? m_rowHeight : delegate->tableViewHeightForRowAt(*this, path);
            layout.frames.emplace_back(0, layout.height, width, height);
            layout.height += height;
        }
    }
    return layout;
}

void UITableView::addHeader(const QString& title, qreal width, Layout& layout) {
    if (title.isEmpty())
        return;
    m_headers.append(QVariantMap{{QStringLiteral("title"), title},
                                 {QStringLiteral("frame"), QRectF(0, layout.height, width, m_headerHeight)}});
    layout.height += m_headerHeight;
}

CellsView::Cell UITableView::makeCell(int number) {
    UITableViewDataSource* source = m_dataSource.get();
    return source == nullptr ? std::make_unique<UITableViewCell>()
                             : source->tableViewCellForRowAt(*this, pathOf(number));
}

void UITableView::didSelect(int number) {
    if (UITableViewDelegate* delegate = m_delegate.get())
        delegate->tableViewDidSelectRowAt(*this, pathOf(number));
}

void UITableView::deselectRow(const IndexPath& path, Animated /*animated*/) {
    deselectItem(numberOf(path));
}

IndexPath UITableView::pathOf(int number) const {
    IndexPath path{0, number};
    while (path.item >= m_rowCounts[static_cast<std::size_t>(path.section)])
        path.item -= m_rowCounts[static_cast<std::size_t>(path.section++)];
    return path;
}

int UITableView::numberOf(const IndexPath& path) const {
    return std::accumulate(m_rowCounts.begin(), m_rowCounts.begin() + path.section, path.item);
}

} // namespace reelsmith
