// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Drawing.h"

#include <QBrush>
#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>

namespace reelsmith {

QImage svgImage(const QString& path, QSize size, const Tints& tints) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The drawing %s is missing", qUtf8Printable(path));
    QByteArray drawing = file.readAll();
    for (const auto& [word, colour] : tints)
        drawing.replace(word, colour);

    QBuffer buffer(&drawing);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(size);
    QImage image = reader.read();
    if (image.isNull())
        qFatal("The drawing %s cannot be shown: %s", qUtf8Printable(path),
               qUtf8Printable(reader.errorString()));
    return image;
}

void paintRounded(QPainter& painter, const QRectF& rectangle, qreal radius, const QImage& image) {
    const qreal density = painter.device()->devicePixelRatioF();
    // Scaled here and not by the brush, which looks at four pixels only and so flickers in small pictures.
    const QImage scaled = image.scaled((rectangle.size() * density).toSize(), Qt::KeepAspectRatioByExpanding,
                                       Qt::SmoothTransformation);
    QBrush brush(scaled);
    QTransform placing;
    placing.translate(rectangle.center().x() - scaled.width() / density / 2,
                      rectangle.center().y() - scaled.height() / density / 2);
    placing.scale(1 / density, 1 / density);
    brush.setTransform(placing);

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(rectangle, radius, radius);
}

} // namespace reelsmith
