// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Artwork.h"

#include "window/Drawing.h"

#include <QImageReader>
#include <QPainter>

namespace reelsmith {

Artwork::Artwork(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &Artwork::changed, this, [this] { update(); });
}

void Artwork::paint(QPainter* painter) {
    const QString path = ":/art/" + m_name + ".svg";
    const QSize natural = QImageReader(path).size();
    const QSize canvasSize = (size() * painter->device()->devicePixelRatioF()).toSize();
    if (natural.isEmpty() || canvasSize.isEmpty())
        return;

    Tints tints;
    for (auto tint = m_tints.cbegin(); tint != m_tints.cend(); ++tint)
        tints.emplace_back('{' + tint.key().toLatin1() + '}', tint->value<QColor>().name().toLatin1());
    const QSize drawingSize(natural.width() * canvasSize.height() / natural.height(), canvasSize.height());

    QImage canvas(canvasSize, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(m_ground);
    QPainter(&canvas).drawImage(canvas.width() - drawingSize.width(), 0, svgImage(path, drawingSize, tints));
    paintRounded(*painter, boundingRect(), m_radius, canvas);
}

} // namespace reelsmith
