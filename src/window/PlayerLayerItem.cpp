// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PlayerLayerItem.h"

#include "platform/foundation/DispatchQueue.h"
#include "window/FramePicture.h"

#include <QPainter>
#include <QVideoSink>
#include <utility>

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

void PlayerLayerItem::follow(QVideoSink& sink) {
    connect(&sink, &QVideoSink::videoFrameChanged, this, &PlayerLayerItem::take);
    // What stands still may have handed out its picture before.
    take(sink.videoFrame());
}

// What comes too fast is passed over, so that nothing piles up.
void PlayerLayerItem::take(const QVideoFrame& frame) {
    if (!frame.isValid())
        return;
    m_next = frame;
    if (!m_isConverting)
        convert();
}

// The way from a frame to a picture is long.
void PlayerLayerItem::convert() {
    m_isConverting = true;
    DispatchQueue::global(QualityOfService::UserInitiated)
        .async([self = QPointer(this), frame = std::exchange(m_next, {})] {
            DispatchQueue::main().async([self, picture = framePicture(frame)] {
                if (self)
                    self->show(picture);
            });
        });
}

void PlayerLayerItem::show(const QImage& picture) {
    m_picture = picture;
    update();
    m_isConverting = false;
    if (m_next.isValid())
        convert();
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
