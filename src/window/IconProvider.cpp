// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/IconProvider.h"

#include "window/Drawing.h"

#include <QColor>

namespace reelsmith {

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const QString name = id.section(u'#', 0, 0);
    const QColor colour(u'#' + id.section(u'#', 1));
    QImage image =
        svgImage(":/icons/" + name + ".svg", requestedSize.isEmpty() ? QSize(24, 24) : requestedSize,
                 {{"currentColor", colour.name().toLatin1()}});
    *size = image.size();
    return image;
}

} // namespace reelsmith
