// SPDX-License-Identifier: GPL-3.0-or-later
#include "Contrast.h"

#include "Layout.h"
#include "TestApplication.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QQuickWindow>
#include <algorithm>
#include <cmath>

namespace reelsmith {

namespace {

/// How light a colour is: 0…1.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// From 1 to 21, as the accessibility guidelines count it.
double contrast(const QColor& one, const QColor& other) {
    const double lighter = std::max(luminance(one), luminance(other));
    const double darker = std::min(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

QColor over(const QColor& ground, const QColor& colour, double opacity) {
    const auto mixed = [opacity](float above, float below) {
        return static_cast<float>(above * opacity + below * (1 - opacity));
    };
    return QColor::fromRgbF(mixed(colour.redF(), ground.redF()), mixed(colour.greenF(), ground.greenF()),
                            mixed(colour.blueF(), ground.blueF()));
}

bool isIcon(const QQuickItem& item) {
    return QByteArray(item.metaObject()->className()).startsWith("Icon_") && item.width() > 0;
}

/// Something that is drawn in one colour.
struct Mark {
    QQuickItem* item;
    QColor colour;
    double opacity; ///< its own and that of all it stands in
    QRect place;    ///< as far as it can be seen
};

std::vector<Mark> marks(QQuickItem& screen) {
    std::vector<Mark> all;
    for (QQuickItem* item : visibleItems(screen)) {
        if (!isText(*item) && !isIcon(*item))
            continue;
        const auto colour = item->property("color").value<QColor>();
        double opacity = colour.alphaF();
        bool isUsable = true;
        for (const QQuickItem* each = item; each != nullptr; each = each->parentItem()) {
            opacity *= each->opacity();
            isUsable = isUsable && each->property("isEnabled") != false;
        }
        if (isUsable)
            all.push_back({item, colour, opacity, seenPlace(*item, screen).toAlignedRect()});
    }
    return all;
}

/// What is drawn below the marks.
QImage ground(QQuickWindow& window, const std::vector<Mark>& marks) {
    std::vector<qreal> opacities;
    for (const Mark& mark : marks) {
        opacities.push_back(mark.item->opacity());
        mark.item->setOpacity(0);
    }
    const QImage image = window.grabWindow();
    for (std::size_t i = 0; i < marks.size(); ++i)
        marks[i].item->setOpacity(opacities[i]);
    return image;
}

/// The contrast of a mark where that is least, but for a few pixels.
double leastContrast(const Mark& mark, const QImage& ground) {
    std::vector<double> found;
    const QRect place = mark.place & ground.rect();
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            const QColor below = ground.pixelColor(x, y);
            found.push_back(contrast(over(below, mark.colour, mark.opacity), below));
        }
    }
    if (found.empty())
        return 21;
    const auto few = found.begin() + static_cast<std::ptrdiff_t>(found.size() / 50);
    std::ranges::nth_element(found, few);
    return *few;
}

double neededContrast(const QQuickItem& item, bool isHigh) {
    const auto font = item.property("font").value<QFont>();
    const bool isLarge = font.pixelSize() >= 24 || (font.pixelSize() >= 19 && font.weight() >= QFont::Bold);
    if (isIcon(item))
        return 3;
    return isHigh ? (isLarge ? 4.5 : 7) : (isLarge ? 3 : 4.5);
}

} // namespace

std::vector<std::string> faintMarks(QQuickWindow& window, QQuickItem& screen, bool isHigh) {
    std::vector<std::string> faint;
    // What is new has its place only once it is drawn.
    window.grabWindow();
    const std::vector<Mark> all = marks(screen);
    const QImage below = ground(window, all);
    for (const Mark& mark : all) {
        // A picture that has just come takes the place of its stand-in while the window is drawn.
        if (!mark.item->isVisible())
            continue;
        if (const double least = leastContrast(mark, below); least < neededContrast(*mark.item, isHigh))
            faint.push_back(description(*mark.item) + " has a contrast of " + std::to_string(least));
    }
    return faint;
}

} // namespace reelsmith
