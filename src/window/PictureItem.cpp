// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PictureItem.h"

#include "window/Drawing.h"

#include <QPainter>

namespace reelsmith {

void PictureItem::setSource(ImageView* source) {
    if (m_source == source)
        return;
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    if (m_source)
        connect(m_source, &View::changed, this, &PictureItem::takePicture);
    emit sourceChanged();
    takePicture();
}

void PictureItem::setRadius(qreal radius) {
    if (m_radius == radius)
        return;
    m_radius = radius;
    emit radiusChanged();
    update();
}

void PictureItem::takePicture() {
    const bool hadPicture = m_hasPicture;
    m_hasPicture = m_source && !m_source->image().isEmpty();
    update();
    if (m_hasPicture != hadPicture)
        emit hasPictureChanged();
}

void PictureItem::paint(QPainter* painter) {
    if (!m_source || m_source->image().isEmpty())
        return;
    const CGImage& picture = m_source->image().cgImage();
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.constData()), picture.width,
                       picture.height, 4 * picture.width, QImage::Format_RGBA8888);
    paintRounded(*painter, boundingRect(), m_radius, image);
}

} // namespace reelsmith
