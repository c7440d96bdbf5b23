// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ShadowProvider.h"

#include <QColor>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

namespace reelsmith {
namespace {

struct Layer {
    int lower;       ///< in points
    int blur;        ///< how far the edge fades out, in points
    double strength; ///< 0…1
};

Layer parsedLayer(const QString& text) {
    return {text.section(u',', 0, 0).toInt(), text.section(u',', 1, 1).toInt(),
            text.section(u',', 2, 2).toDouble()};
}

/// How far a point lies outside of a rectangle with round corners; negative inside.
double distanceOutside(double x, double y, double halfSide, double radius) {
    const double dx = std::abs(x) - (halfSide - radius);
    const double dy = std::abs(y) - (halfSide - radius);
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) - radius;
}

/// How much of a layer is seen at a distance from its edge: half on it, none at its reach.
double coverage(double distance, int blur) {
    const double deviation = std::max(blur, 1) / 2.0;
    return std::erfc(distance / deviation / std::sqrt(2.0)) / 2;
}

} // namespace

QImage ShadowProvider::requestImage(const QString& id, QSize* size, const QSize& /*requestedSize*/) {
    const QColor colour(u'#' + id.section(u'#', 1));
    const QStringList parts = id.section(u'#', 0, 0).split(u'/');
    const int radius = parts.value(0).toInt();
    std::vector<Layer> layers;
    for (const QString& part : parts.mid(1))
        layers.push_back(parsedLayer(part));

    int reach = 0;
    int blur = 0;
    for (const Layer& layer : layers) {
        reach = std::max(reach, layer.lower + layer.blur);
        blur = std::max(blur, layer.blur);
    }
    const double halfSide = radius + blur + 0.5;
    const int side = 2 * (reach + radius + blur) + 1;
    QImage image(side, side, QImage::Format_ARGB32);
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            double clear = 1;
            for (const Layer& layer : layers) {
                const double distance = distanceOutside(
                    column + 0.5 - side / 2.0, row + 0.5 - side / 2.0 - layer.lower, halfSide, radius);
                clear *= 1 - layer.strength * coverage(distance, layer.blur);
            }
            image.setPixel(column, row,
                           qRgba(colour.red(), colour.green(), colour.blue(),
                                 static_cast<int>(std::lround((1 - clear) * 255))));
        }
    }
    *size = image.size();
    return image;
}

} // namespace reelsmith
