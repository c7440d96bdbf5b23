// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMarginsF>
#include <QRectF>
#include <QSizeF>
#include <vector>

namespace reelsmith {

/// Items in lines, as many as fit beside each other. All in points.
struct UICollectionViewFlowLayout {
    QMarginsF sectionInset;
    QSizeF itemSize{50, 50};
    qreal minimumLineSpacing = 10;
    qreal minimumInteritemSpacing = 10;

    /// Where items of these sizes stand in a width. A line's items stand as far apart as the width lets them,
    /// alone in the middle where no two fit; the last line keeps the distances of a full one.
    std::vector<QRectF> frames(qreal width, const std::vector<QSizeF>& sizes) const;

private:
    qreal spacing(qreal available, std::size_t count, qreal itemsWidth, qreal itemWidth) const;
};

} // namespace reelsmith
