// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UICollectionView.h"

#include <algorithm>

namespace reelsmith {

std::optional<UIContextMenuConfiguration>
UICollectionViewDelegate::collectionViewContextMenuConfigurationForItemAt(UICollectionView&,
                                                                          const IndexPath&) {
    return std::nullopt;
}

QSizeF UICollectionViewDelegate::collectionViewLayoutSizeForItemAt(UICollectionView& view, const IndexPath&) {
    return view.collectionViewLayout().itemSize;
}

QMarginsF UICollectionViewDelegate::collectionViewLayoutInsetForSectionAt(UICollectionView& view, int) {
    return view.collectionViewLayout().sectionInset;
}

qreal UICollectionViewDelegate::collectionViewLayoutMinimumLineSpacingForSectionAt(UICollectionView& view,
                                                                                   int) {
    return view.collectionViewLayout().minimumLineSpacing;
}

qreal UICollectionViewDelegate::collectionViewLayoutMinimumInteritemSpacingForSectionAt(
    UICollectionView& view, int) {
    return view.collectionViewLayout().minimumInteritemSpacing;
}

void UICollectionView::setDataSource(const WeakDelegate<UICollectionViewDataSource>& source) {
    m_dataSource = source;
    reloadData();
}

void UICollectionView::setDelegate(const WeakDelegate<UICollectionViewDelegate>& delegate) {
    m_delegate = delegate;
    reloadData();
}

void UICollectionView::setCollectionViewLayout(const UICollectionViewFlowLayout& layout) {
    m_flow = layout;
    layOut();
}

CellsView::Layout UICollectionView::makeLayout(qreal width) {
    UICollectionViewDataSource* source = m_dataSource.get();
    if (source == nullptr)
        return {};
    UICollectionViewDelegate* delegate = m_delegate.get();
    UICollectionViewFlowLayout flow = m_flow;
    std::vector<QSizeF> sizes(
        static_cast<std::size_t>(source->collectionViewNumberOfItemsInSection(*this, 0)), flow.itemSize);
    if (delegate != nullptr) {
        flow = askedLayout(*delegate);
        int item = 0;
        for (QSizeF& size : sizes)
            size = delegate->collectionViewLayoutSizeForItemAt(*this, {0, item++});
    }
    Layout layout{flow.frames(width, sizes), flow.sectionInset.top()};
    for (const QRectF& frame : layout.frames)
        layout.height = std::max(layout.height, frame.bottom());
    layout.height += flow.sectionInset.bottom();
    return layout;
}

UICollectionViewFlowLayout UICollectionView::askedLayout(UICollectionViewDelegate& delegate) {
    UICollectionViewFlowLayout flow = m_flow;
    flow.sectionInset = delegate.collectionViewLayoutInsetForSectionAt(*this, 0);
    flow.minimumLineSpacing = delegate.collectionViewLayoutMinimumLineSpacingForSectionAt(*this, 0);
    flow.minimumInteritemSpacing = delegate.collectionViewLayoutMinimumInteritemSpacingForSectionAt(*this, 0);
    return flow;
}

CellsView::Cell UICollectionView::makeCell(int number) {
    UICollectionViewDataSource* source = m_dataSource.get();
    return source == nullptr ? std::make_unique<UICollectionViewCell>()
                             : source->collectionViewCellForItemAt(*this, {0, number});
}

void UICollectionView::didSelect(int number) {
    if (UICollectionViewDelegate* delegate = m_delegate.get())
        delegate->collectionViewDidSelectItemAt(*this, {0, number});
}

std::optional<UIContextMenuConfiguration> UICollectionView::menu(int number) {
    UICollectionViewDelegate* delegate = m_delegate.get();
    return delegate == nullptr
               ? std::nullopt
               : delegate->collectionViewContextMenuConfigurationForItemAt(*this, {0, number});
}

} // namespace reelsmith
