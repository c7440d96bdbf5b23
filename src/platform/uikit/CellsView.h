// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/CellPool.h"
#include "platform/uikit/UIContextMenuConfiguration.h"
#include "platform/uikit/View.h"

#include <concepts>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace reelsmith {

/// What collection and table views have in common: a long content of which only what is in sight has cells.
/// Items are counted through all sections here. Main thread.
class CellsView : public reelsmith::View {
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* cells READ cells CONSTANT)
    Q_PROPERTY(qreal contentHeight READ contentHeight NOTIFY layoutChanged)
    Q_PROPERTY(int count READ count NOTIFY layoutChanged)
    Q_PROPERTY(QRectF currentFrame READ currentFrame NOTIFY currentChanged)

public:
    using Cell = CellPool::Cell;

    /// Has cells of a class made, default-constructed, for `reuseIdentifier`.
    template<std::derived_from<ReusableCell> Class>
    void registerClass(const QString& reuseIdentifier) {
        m_pool.registerFactory(reuseIdentifier, [] { return std::make_unique<Class>(); });
    }

    /// A cell to return to the view, used before or new; null where nothing is registered.
    Cell dequeueReusableCell(const QString& reuseIdentifier) { return m_pool.take(reuseIdentifier); }

    /// Asks for everything anew.
    void reloadData();

    /// Which part of the content is in sight, in points. Another width lays the content out again.
    Q_INVOKABLE void setViewport(qreal top, qreal width, qreal height);

    /// Whether keys go to this view: then the current item shows it.
    Q_INVOKABLE void setFocused(bool isFocused);

    /// The keyboard has come to the cells: the first one is current where none is.
    Q_INVOKABLE void enterByKey();

    /// What a key of Qt::Key does here; false if nothing. The arrows, Home and End move the current item,
    /// Return and the space bar tap it.
    Q_INVOKABLE bool pressKey(int key);

    /// Opens the current item's menu; see ReusableCell::openMenu().
    Q_INVOKABLE bool openCurrentMenu(const QPointF& contentOrigin);

    /// Where the content would have to begin for the current item to be in sight, as little off as possible.
    Q_INVOKABLE qreal topShowingCurrent() const;

    void deselectItem(int number);

    qreal width() const { return m_viewport.width(); } ///< in points
    QAbstractItemModel* cells() { return &m_pool; }
    qreal contentHeight() const { return m_layout.height; }
    int count() const { return static_cast<int>(m_layout.frames.size()); }
    QRectF currentFrame() const;          ///< empty when there is none
    ReusableCell* cell(int number) const; ///< null when out of sight

signals:
    void layoutChanged();
    void currentChanged();

protected:
    struct Layout {
        std::vector<QRectF> frames; ///< from top to bottom
        qreal height = 0;
    };

    virtual Layout makeLayout(qreal width) = 0;
    virtual Cell makeCell(int number) = 0;
    virtual void didSelect(int number) = 0;
    virtual std::optional<UIContextMenuConfiguration> menu(int /*number*/) { return std::nullopt; }

    /// Asks for the layout anew; cells in sight stay.
    void layOut();

private:
    void showVisible();
    void show(int number);
    void select(int number);
    void presentMenu(int number, const QPointF& contentOrigin);
    void setCurrent(int number);
    void markCurrent(bool isCurrent);
    int neighbour(int key) const;
    int itemInLine(qreal direction) const;

    CellPool m_pool;
    Layout m_layout;
    std::map<int, Cell> m_shown;
    QRectF m_viewport;
    int m_current = -1;
    bool m_isFocused = false;
};

} // namespace reelsmith
