// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QString>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

namespace reelsmith {

/// A drawing of the resources on a plain ground with round corners. It is as high as the item and stands at
/// its right edge.
class Artwork : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY changed)
    Q_PROPERTY(QVariantMap tints MEMBER m_tints NOTIFY changed)
    Q_PROPERTY(QColor ground MEMBER m_ground NOTIFY changed)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY changed)

public:
    explicit Artwork(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    QString m_name;
    QVariantMap m_tints; ///< a colour for each word in braces of the drawing
    QColor m_ground = Qt::transparent;
    qreal m_radius = 0; ///< in points
};

} // namespace reelsmith
