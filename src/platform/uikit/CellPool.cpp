// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/CellPool.h"

#include <algorithm>
#include <utility>

namespace reelsmith {

CellPool::~CellPool() {
    // While they can still be taken off the list.
    m_waiting.clear();
}

void CellPool::registerFactory(const QString& reuseIdentifier, Factory factory) {
    m_factories[reuseIdentifier] = std::move(factory);
}

CellPool::Cell CellPool::take(const QString& reuseIdentifier) {
    std::deque<Cell>& waiting = m_waiting[reuseIdentifier];
    if (!waiting.empty()) {
        Cell cell = std::move(waiting.front());
        waiting.pop_front();
        return cell;
    }
    const auto factory = m_factories.find(reuseIdentifier);
    if (factory == m_factories.end())
        return nullptr;
    Cell cell = factory->second();
    cell->setReuseIdentifier(reuseIdentifier);
    return cell;
}

void CellPool::giveBack(Cell cell) {
    cell->putAway();
    if (cell->reuseIdentifier().isEmpty())
        unlist(cell.get());
    else
        m_waiting[cell->reuseIdentifier()].push_back(std::move(cell));
}

void CellPool::list(ReusableCell& cell) {
    if (std::ranges::find(m_listed, &cell) != m_listed.end())
        return;
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_listed.push_back(&cell);
    endInsertRows();
    connect(&cell, &QObject::destroyed, this, &CellPool::unlist);
}

void CellPool::unlist(const QObject* cell) {
    const auto found = std::ranges::find(m_listed, cell);
    if (found == m_listed.end())
        return;
    const int row = static_cast<int>(found - m_listed.begin());
    beginRemoveRows({}, row, row);
    m_listed.erase(found);
    endRemoveRows();
}

int CellPool::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_listed.size());
}

QVariant CellPool::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != CellRole)
        return {};
    return QVariant::fromValue<QObject*>(m_listed.at(static_cast<std::size_t>(index.row())));
}

QHash<int, QByteArray> CellPool::roleNames() const {
    return {{CellRole, "cell"}};
}

} // namespace reelsmith
