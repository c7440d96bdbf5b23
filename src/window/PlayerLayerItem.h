// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/AVPlayerLayer.h"

#include <QImage>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QVideoFrame>
#include <QtQml/qqmlregistration.h>

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
    void follow(QVideoSink& sink);
    void take(const QVideoFrame& frame);
    void convert();
    void show(const QImage& picture);

    QPointer<AVPlayerLayer> m_layer;
    QVideoFrame m_next; // the newest, while an earlier one is being converted; else none
    bool m_isConverting = false;
    QImage m_picture;
};

} // namespace reelsmith
