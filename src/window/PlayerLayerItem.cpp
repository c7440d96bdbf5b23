// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PlayerLayerItem.h"

#include "platform/foundation/DispatchQueue.h"
#include "window/FramePicture.h"

#include <QPainter>
#include <QVideoFrame>
#include <QVideoSink>
#include <mutex>
#include <utility>

namespace reelsmith {

/// The way from the player's thread to this one: what comes too fast is passed over, so that pictures do not
/// pile up.
class PlayerLayerItem::NewestPicture {
public:
    /// Answers whether somebody must take it.
    bool put(QImage picture) {
        const std::lock_guard lock(m_mutex);
        m_picture = std::move(picture);
        return !std::exchange(m_isWaiting, true);
    }
    QImage take() {
        const std::lock_guard lock(m_mutex);
        m_isWaiting = false;
        return std::exchange(m_picture, {});
    }

private:
    std::mutex m_mutex;
    QImage m_picture;
    bool m_isWaiting = false;
};

PlayerLayerItem::PlayerLayerItem(QQuickItem* parent)
    : QQuickPaintedItem(parent), m_newest(std::make_shared<NewestPicture>()) {
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
    const auto take = [self = QPointer(this), newest = m_newest](const QVideoFrame& frame) {
        if (!frame.isValid() || !newest->put(framePicture(frame)))
            return;
        DispatchQueue::main().async([self, newest] {
            if (self)
                self->show(newest->take());
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
