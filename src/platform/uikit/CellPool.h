// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/ReusableCell.h"

#include <QAbstractListModel>
#include <deque>
#include <functional>
#include <map>
#include <memory>

namespace reelsmith {

/// The cells of one view that stand for nothing now, and how to make more. As a model: all cells that were
/// taken from it, in use or not, so that what shows a cell lasts as long as the cell. Main thread.
class CellPool : public QAbstractListModel {
    Q_OBJECT

public:
    using Cell = std::unique_ptr<ReusableCell>;
    using Factory = std::function<Cell()>;
    enum Role { CellRole = Qt::UserRole };

    ~CellPool() override;

    void registerFactory(const QString& reuseIdentifier, Factory factory);

    /// The cell that has waited longest, else a new one; null where nothing is registered.
    Cell take(const QString& reuseIdentifier);

    /// Puts a cell away. One without a reuse identifier ends.
    void giveBack(Cell cell);

    /// Lists a cell, once.
    void list(ReusableCell& cell);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    void unlist(const QObject* cell);

    std::map<QString, Factory> m_factories;
    std::map<QString, std::deque<Cell>> m_waiting;
    std::vector<ReusableCell*> m_listed;
};

} // namespace reelsmith
