// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QSize>
#include <QString>
#include <utility>
#include <vector>

class QPainter;

namespace reelsmith {

/// Words that stand for a colour in an SVG, each with that colour.
using Tints = std::vector<std::pair<QByteArray, QByteArray>>;

/// Draws an SVG of the resources into `size` pixels, with its proportions as they are asked for. `path`
/// starts with ":/". A drawing that is not there stops the application.
QImage svgImage(const QString& path, QSize size, const Tints& tints);

/// Fills `rectangle` with `image`, which covers it whole and is cut evenly at the sides that are too long.
/// Corners are round by `radius` units of the painter.
void paintRounded(QPainter& painter, const QRectF& rectangle, qreal radius, const QImage& image);

} // namespace reelsmith
