// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PlayerLayerItem.h"

#include "platform/foundation/DispatchQueue.h"
#include "window/FramePicture.h"

#include <QPainter>
#include <QVideoFrame>
#include <QVideoSink>
#include <mutex>
#include <optional>
#include <utility>

namespace reelsmith {

/// The way from the player's thread to this one: what comes too fast is passed over, so that nothing piles
/// up.
class PlayerLayerItem::NewestFrame {
public:
    /// Answers whether somebody must take it.
    bool put(const QVideoFrame& frame) {
        const std::lock_guard lock(m_mutex);
        m_frame = frame;
        return !std::exchange(m_isTaken, true);
    }
    /// Who has taken one comes back for the next, until there is none.
    std::optional<QVideoFrame> take() {
        const std::lock_guard lock(m_mutex);
        m_isTaken = m_frame.has_value();
        return std::exchange(m_frame, std::nullopt);
    }

private:
    std::mutex m_mutex;
    std::optional<QVideoFrame> m_frame;
    bool m_isTaken = false;
};

PlayerLayerItem::PlayerLayerItem(QQuickItem* parent)
    : QQuickPaintedItem(parent), m_newest(std::make_shared<NewestFrame>()) {
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
    const auto keep = [self = QPointer(this), newest = m_newest](const QVideoFrame& frame) {
        if (frame.isValid() && newest->put(frame))
            convert(self, newest);
    };
    connect(&sink, &QVideoSink::videoFrameChanged, this, keep, Qt::DirectConnection);
}

// The way from a frame to a picture is long. The player's own thread must not go it: while it does, the
// player cannot be told anything, and whoever tries waits.
void PlayerLayerItem::convert(const QPointer<PlayerLayerItem>& self,
                              const std::shared_ptr<NewestFrame>& newest) {
    DispatchQueue::global(QualityOfService::UserInitiated).async([self, newest] {
        const std::optional<QVideoFrame> frame = newest->take();
        if (!frame)
            return;
        DispatchQueue::main().async([self, newest, picture = framePicture(*frame)] {
            if (!self)
                return;
            self->show(picture);
            convert(self, newest);
        });
    });
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
