// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PlayerLayerItem.h"

#include "platform/foundation/DispatchQueue.h"

#include <QPainter>
#include <QVideoFrame>
#include <QVideoSink>

namespace reelsmith {

PlayerLayerItem::PlayerLayerItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setOpaquePainting(true);
}

void PlayerLayerItem::setPlayerLayer(AVPlayerLayer* layer) {
    if (m_layer == layer)
        return;
    if (QObject* old = m_layer ? m_layer->output() : nullptr)
        old->disconnect(this);
    m_layer = layer;
    if (auto* sink = qobject_cast<QVideoSink*>(m_layer ? m_layer->output() : nullptr))
        follow(*sink);
    emit playerLayerChanged();
}

// On the player's own thread, since the way from a frame to a picture is long.
void PlayerLayerItem::follow(QVideoSink& sink) {
    const auto take = [self = QPointer(this)](const QVideoFrame& frame) {
        if (!frame.isValid())
            return;
        DispatchQueue::main().async([self, picture = frame.toImage()] {
            if (self)
                self->show(picture);
        });
    };
    connect(&sink, &QVideoSink::videoFrameChanged, this, take, Qt::DirectConnection);
}

void PlayerLayerItem::show(const QImage& picture) {
    m_picture = picture;
    update();
}

void PlayerLayerItem::paint(QPainter* painter) {
    painter->fillRect(boundingRect(), Qt::black);
    if (m_picture.isNull() || !m_layer)
        return;
    const auto mode = m_layer->isFilling() ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio;
    QRectF place({}, QSizeF(m_picture.size()).scaled(size(), mode));
    place.moveCenter(boundingRect().center());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(place, m_picture);
}

} // namespace reelsmith
