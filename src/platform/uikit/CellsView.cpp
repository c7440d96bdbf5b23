// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/CellsView.h"

#include "platform/uikit/UIContextMenuController.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace reelsmith {

void CellsView::reloadData() {
    for (auto& [number, cell] : std::exchange(m_shown, {}))
        m_pool.giveBack(std::move(cell));
    layOut();
}

void CellsView::setViewport(qreal top, qreal width, qreal height) {
    const bool isOtherWidth = width != m_viewport.width();
    m_viewport = {0, top, width, height};
    if (isOtherWidth)
        layOut();
    else
        showVisible();
}

void CellsView::layOut() {
    m_layout = makeLayout(m_viewport.width());
    emit layoutChanged();
    setCurrent(std::min(m_current, count() - 1));
    showVisible();
}

void CellsView::showVisible() {
    // What has left goes first: what comes may use its cells.
    for (auto entry = m_shown.begin(); entry != m_shown.end();) {
        const auto& [number, cell] = *entry;
        if (number < count() && m_layout.frames[static_cast<std::size_t>(number)].intersects(m_viewport)) {
            ++entry;
            continue;
        }
        m_pool.giveBack(std::move(entry->second));
        entry = m_shown.erase(entry);
    }
    for (int number = 0; number < count(); ++number) {
        const QRectF& frame = m_layout.frames[static_cast<std::size_t>(number)];
        if (frame.top() >= m_viewport.bottom())
            break;
        if (frame.intersects(m_viewport))
            show(number);
    }
}

void CellsView::show(int number) {
    Cell& cell = m_shown[number];
    if (!cell) {
        cell = makeCell(number);
        m_pool.list(*cell);
        connect(cell.get(), &ReusableCell::tapped, this, &CellsView::select, Qt::UniqueConnection);
        connect(cell.get(), &ReusableCell::menuWanted, this, &CellsView::presentMenu, Qt::UniqueConnection);
    }
    cell->place(number, m_layout.frames[static_cast<std::size_t>(number)]);
    cell->setCurrent(m_isFocused && number == m_current);
}

ReusableCell* CellsView::cell(int number) const {
    const auto found = m_shown.find(number);
    return found == m_shown.end() ? nullptr : found->second.get();
}

void CellsView::select(int number) {
    if (ReusableCell* tapped = cell(number))
        tapped->setSelected(true);
    didSelect(number);
}

void CellsView::deselectItem(int number) {
    if (ReusableCell* selected = cell(number))
        selected->setSelected(false);
}

void CellsView::presentMenu(int number, const QPointF& contentOrigin) {
    if (ReusableCell* held = cell(number); held != nullptr) {
        if (auto configuration = menu(number))
            UIContextMenuController::show(std::move(*configuration), *held,
                                          held->frame().translated(contentOrigin));
    }
}

bool CellsView::openCurrentMenu(const QPointF& contentOrigin) {
    if (m_current < 0)
        return false;
    presentMenu(m_current, contentOrigin);
    return true;
}

void CellsView::setFocused(bool isFocused) {
    m_isFocused = isFocused;
    markCurrent(isFocused);
}

void CellsView::enterByKey() {
    if (m_current < 0 && count() > 0)
        setCurrent(0);
}

void CellsView::markCurrent(bool isCurrent) {
    if (ReusableCell* current = cell(m_current))
        current->setCurrent(isCurrent);
}

void CellsView::setCurrent(int number) {
    if (number == m_current)
        return;
    markCurrent(false);
    m_current = number;
    markCurrent(m_isFocused);
    emit currentChanged();
}

QRectF CellsView::currentFrame() const {
    return m_current < 0 ? QRectF() : m_layout.frames[static_cast<std::size_t>(m_current)];
}

qreal CellsView::topShowingCurrent() const {
    const QRectF frame = currentFrame();
    const qreal lowest = frame.bottom() - m_viewport.height();
    return m_current < 0 ? m_viewport.top() : std::max(std::min(m_viewport.top(), frame.top()), lowest);
}

bool CellsView::pressKey(int key) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        if (m_current < 0)
            return false;
        select(m_current);
        return true;
    }
    const int number = neighbour(key);
    if (number < 0 || number >= count())
        return false;
    setCurrent(number);
    return true;
}

int CellsView::neighbour(int key) const {
    switch (key) {
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return count() - 1;
    case Qt::Key_Left:
        return m_current - 1;
    case Qt::Key_Right:
        return m_current + 1;
    case Qt::Key_Up:
        return itemInLine(-1);
    case Qt::Key_Down:
        return itemInLine(1);
    default:
        return -1;
    }
}

// The item of the next line in a direction whose middle is nearest to that of the current one.
int CellsView::itemInLine(qreal direction) const {
    if (m_current < 0)
        return 0;
    const QPointF from = currentFrame().center();
    int nearest = -1;
    qreal leastAway = std::numeric_limits<qreal>::max();
    for (int number = 0; number < count(); ++number) {
        const QPointF offset = m_layout.frames[static_cast<std::size_t>(number)].center() - from;
        if (offset.y() * direction <= 0)
            continue;
        // A line further away is always further than any item of a nearer one.
        const qreal away = offset.y() * direction * m_viewport.width() + std::abs(offset.x());
        if (away < leastAway) {
            leastAway = away;
            nearest = number;
        }
    }
    return nearest;
}

} // namespace reelsmith
