// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/UICollectionViewFlowLayout.h"

#include <algorithm>
#include <cmath>

namespace reelsmith {

namespace {

// Thirds and the like do not add up to the whole exactly.
constexpr qreal tolerance = 0.01;

} // namespace

std::vector<QRectF> UICollectionViewFlowLayout::frames(qreal width, const std::vector<QSizeF>& sizes) const {
    const qreal available = width - sectionInset.left() - sectionInset.right();
    std::vector<QRectF> placed;
    placed.reserve(sizes.size());
    qreal top = sectionInset.top();
    for (std::size_t first = 0; first < sizes.size();) {
        qreal itemsWidth = sizes[first].width();
        qreal height = sizes[first].height();
        std::size_t end = first + 1;
        for (; end < sizes.size(); ++end) {
            const auto gaps = static_cast<qreal>(end - first);
            if (itemsWidth + sizes[end].width() + gaps * minimumInteritemSpacing > available + tolerance)
                break;
            itemsWidth += sizes[end].width();
            height = std::max(height, sizes[end].height());
        }
        const bool isLast = end == sizes.size();
        const qreal gap = spacing(available, end - first, itemsWidth, isLast ? sizes[first].width() : 0);
        qreal left = sectionInset.left() + (gap < 0 ? (available - itemsWidth) / 2 : 0);
        for (std::size_t item = first; item < end; ++item) {
            placed.emplace_back(QPointF(left, top + (height - sizes[item].height()) / 2), sizes[item]);
            left += sizes[item].width() + gap;
        }
        top += height + minimumLineSpacing;
        first = end;
    }
    return placed;
}

// Negative for an item alone in its line. `itemWidth`: of the items that would fill the last line; 0
// elsewhere.
qreal UICollectionViewFlowLayout::spacing(qreal available, std::size_t count, qreal itemsWidth,
                                          qreal itemWidth) const {
    const qreal own = count < 2 ? -1 : (available - itemsWidth) / static_cast<qreal>(count - 1);
    const qreal fitting =
        std::floor((available + minimumInteritemSpacing + tolerance) / (itemWidth + minimumInteritemSpacing));
    if (itemWidth == 0 || fitting < 2)
        return own;
    const qreal ofFullLine = (available - fitting * itemWidth) / (fitting - 1);
    return own < 0 ? ofFullLine : std::min(own, ofFullLine);
}

} // namespace reelsmith
