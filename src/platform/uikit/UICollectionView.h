// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"
#include "platform/uikit/CellsView.h"
#include "platform/uikit/IndexPath.h"
#include "platform/uikit/UICollectionViewCell.h"
#include "platform/uikit/UICollectionViewFlowLayout.h"

namespace reelsmith {

class UICollectionView;

/// Says what a collection shows. Its items form one section.
class UICollectionViewDataSource {
public:
    virtual ~UICollectionViewDataSource() = default;

    virtual int collectionViewNumberOfItemsInSection(UICollectionView& view, int section) = 0;

    /// The cell for an item, dequeued from the view or new; never null.
    virtual CellsView::Cell collectionViewCellForItemAt(UICollectionView& view, const IndexPath& path) = 0;
};

/// Hears what the user does with a collection, and answers its layout's questions: as the layout itself says,
/// unless overridden.
class UICollectionViewDelegate {
public:
    virtual ~UICollectionViewDelegate() = default;

    virtual void collectionViewDidSelectItemAt(UICollectionView& /*view*/, const IndexPath& /*path*/) {}

    /// The menu for an item; nothing for none.
    virtual std::optional<UIContextMenuConfiguration>
    collectionViewContextMenuConfigurationForItemAt(UICollectionView& view, const IndexPath& path);

    virtual QSizeF collectionViewLayoutSizeForItemAt(UICollectionView& view, const IndexPath& path);
    virtual QMarginsF collectionViewLayoutInsetForSectionAt(UICollectionView& view, int section);
    virtual qreal collectionViewLayoutMinimumLineSpacingForSectionAt(UICollectionView& view, int section);
    virtual qreal collectionViewLayoutMinimumInteritemSpacingForSectionAt(UICollectionView& view,
                                                                          int section);
};

/// A grid of tiles. Asks its data source and delegate anew with each reload and for each other width. Main
/// thread.
class UICollectionView : public reelsmith::CellsView {
    Q_OBJECT

public:
    using CellsView::CellsView;

    /// Both ask for everything anew.
    void setDataSource(const WeakDelegate<UICollectionViewDataSource>& source);
    void setDelegate(const WeakDelegate<UICollectionViewDelegate>& delegate);

    const UICollectionViewFlowLayout& collectionViewLayout() const { return m_flow; }
    void setCollectionViewLayout(const UICollectionViewFlowLayout& layout);

    /// Asks for the layout anew, once its answers are others.
    void invalidateLayout() { layOut(); }

protected:
    Layout makeLayout(qreal width) override;
    Cell makeCell(int number) override;
    void didSelect(int number) override;
    std::optional<UIContextMenuConfiguration> menu(int number) override;

private:
    UICollectionViewFlowLayout askedLayout(UICollectionViewDelegate& delegate);

    WeakDelegate<UICollectionViewDataSource> m_dataSource;
    WeakDelegate<UICollectionViewDelegate> m_delegate;
    UICollectionViewFlowLayout m_flow;
};

} // namespace reelsmith
