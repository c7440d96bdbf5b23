// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/ImageView.h"

#include <QPointer>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace reelsmith {

/// Shows the picture of an outlet, which fills the item and has round corners; shows nothing while there is
/// none.
class PictureItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(reelsmith::ImageView* source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY radiusChanged)
    Q_PROPERTY(bool hasPicture READ hasPicture NOTIFY hasPictureChanged)

public:
    using QQuickPaintedItem::QQuickPaintedItem;

    ImageView* source() const { return m_source; } ///< may be null; not owned
    void setSource(ImageView* source);

    qreal radius() const { return m_radius; } ///< in points
    void setRadius(qreal radius);

    bool hasPicture() const { return m_hasPicture; }

    void paint(QPainter* painter) override;

signals:
    void sourceChanged();
    void radiusChanged();
    void hasPictureChanged();

private:
    void takePicture();

    QPointer<ImageView> m_source;
    qreal m_radius = 0;
    bool m_hasPicture = false;
};

} // namespace reelsmith
