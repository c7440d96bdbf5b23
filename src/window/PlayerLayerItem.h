// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/AVPlayerLayer.h"

#include <QImage>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>
#include <memory>

class QVideoSink;

namespace reelsmith {

/// Draws what a player plays: the whole picture, or what fills the item of it. The last picture stays.
class PlayerLayerItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        reelsmith::AVPlayerLayer* playerLayer READ playerLayer WRITE setPlayerLayer NOTIFY playerLayerChanged)

public:
    explicit PlayerLayerItem(QQuickItem* parent = nullptr);

    AVPlayerLayer* playerLayer() const { return m_layer; } ///< may be null; not owned
    void setPlayerLayer(AVPlayerLayer* layer);

    void paint(QPainter* painter) override;

signals:
    void playerLayerChanged();

private:
    class NewestFrame;

    void follow(QVideoSink& sink);
    static void convert(const QPointer<PlayerLayerItem>& self, const std::shared_ptr<NewestFrame>& newest);
    void show(const QImage& picture);

    QPointer<AVPlayerLayer> m_layer;
    std::shared_ptr<NewestFrame> m_newest;
    QImage m_picture;
};

} // namespace reelsmith
