// SPDX-License-Identifier: GPL-3.0-or-later
#include "Layout.h"

#include "TestApplication.h"

#include <QDir>
#include <QFontMetricsF>
#include <QQuickWindow>

namespace reelsmith {

namespace {

// Edges need not fall on whole points.
constexpr qreal tolerance = 1;

QRectF shrunk(const QRectF& rectangle) {
    return rectangle.adjusted(tolerance, tolerance, -tolerance, -tolerance);
}

/// Where the letters of a text are, within its item: from the top of a capital on, without the air between
/// lines.
QRectF letters(const QQuickItem& text) {
    const QFontMetricsF metrics(text.property("font").value<QFont>());
    const qreal above = metrics.ascent() - metrics.capHeight();
    const qreal ink = metrics.tightBoundingRect(text.property("text").toString()).bottom();
    const bool hasOwnLine = text.property("lineHeightMode").toInt() == 1;
    const qreal line = hasOwnLine ? text.property("lineHeight").toReal() : metrics.height();
    const qreal air = line - metrics.ascent() - qMax(0.0, ink);
    const QSizeF content(text.property("contentWidth").toReal(), text.property("contentHeight").toReal());
    const auto alignment = Qt::Alignment(text.property("effectiveHorizontalAlignment").toInt());
    const qreal free = text.width() - content.width();
    const qreal x = alignment & Qt::AlignRight ? free : alignment & Qt::AlignHCenter ? free / 2 : 0;
    const auto vertical = Qt::Alignment(text.property("verticalAlignment").toInt());
    const qreal y = vertical & Qt::AlignVCenter ? (text.height() - content.height()) / 2
                                                : text.property("topPadding").toReal();
    return {x, y + above, content.width(), content.height() - air - above};
}

QRectF place(const QQuickItem& item) {
    return isText(item) ? item.mapRectToScene(letters(item)) : sceneRectangle(item);
}

bool isCut(const QQuickItem& text) {
    const QString words = text.property("text").toString();
    const bool isUsers = words.contains(longName.left(6)) || words.contains(QDir::homePath());
    const bool isElided = text.property("elide").toInt() != Qt::ElideNone;
    return (text.property("truncated").toBool() && !isUsers) ||
           (!isElided && text.property("contentWidth").toReal() > text.width() + tolerance) ||
           text.property("contentHeight").toReal() > text.height() + tolerance;
}

/// A place as far as it can be seen, and what it leaves on the way up to the window, if anything.
struct Sight {
    QRectF seen;
    const QQuickItem* left = nullptr;
};

Sight sight(const QQuickItem& item, const QQuickItem& screen) {
    Sight sight{place(item)};
    for (const QQuickItem* above = item.parentItem(); above != nullptr && !sight.seen.isEmpty();
         above = above->parentItem()) {
        const bool scrolls = above->inherits("QQuickFlickable");
        const bool holds = above == &screen || above->clip() || above->inherits("QQuickAbstractButton");
        if (!scrolls && !holds)
            continue;
        QRectF room = sceneRectangle(*above);
        if (scrolls && above->property("contentHeight").toReal() > above->height() + tolerance)
            sight.seen =
                sight.seen.intersected({sight.seen.x(), room.y(), sight.seen.width(), room.height()});
        if (!sight.seen.isEmpty() && !room.contains(shrunk(sight.seen)))
            return {sight.seen, above};
        if (above == &screen)
            break;
    }
    return sight;
}

std::vector<std::string> overlaps(const std::vector<std::pair<QQuickItem*, QRectF>>& seen) {
    std::vector<std::string> found;
    for (auto one = seen.begin(); one != seen.end(); ++one) {
        for (auto other = std::next(one); other != seen.end(); ++other) {
            const bool isWithin =
                one->first->isAncestorOf(other->first) || other->first->isAncestorOf(one->first);
            if (!isWithin && isText(*one->first) == isText(*other->first) &&
                shrunk(one->second).intersects(shrunk(other->second)))
                found.push_back(description(*one->first) + " lies over " + description(*other->first));
        }
    }
    return found;
}

} // namespace

std::string description(const QQuickItem& item) {
    const QString type = QString(item.metaObject()->className()).section("_QML", 0, 0);
    QString name = item.objectName();
    for (const char* property : {"label", "title", "text"}) {
        if (name.isEmpty())
            name = item.property(property).toString();
    }
    return (type + " \"" + name + '"').toStdString();
}

bool isText(const QQuickItem& item) {
    return item.inherits("QQuickText") && !item.property("text").toString().isEmpty();
}

QRectF seenPlace(const QQuickItem& item, const QQuickItem& screen) {
    return sight(item, screen).seen;
}

std::vector<std::string> flaws(QQuickWindow& window, QQuickItem& screen) {
    std::vector<std::string> found;
    if (screen.size() != window.contentItem()->size())
        found.push_back("the screen does not fill the window");
    const std::vector<QQuickItem*> pressed = controls(screen);
    std::vector<std::pair<QQuickItem*, QRectF>> seen;
    for (QQuickItem* item : visibleItems(screen)) {
        const bool isControl = std::ranges::find(pressed, item) != pressed.end();
        if (!isText(*item) && !isControl)
            continue;
        if (isText(*item) && isCut(*item))
            found.push_back(description(*item) + " is cut");
        const Sight one = sight(*item, screen);
        if (one.left != nullptr)
            found.push_back(description(*item) + " leaves " + description(*one.left));
        if (!one.seen.isEmpty())
            seen.emplace_back(item, one.seen);
        const qreal content = item->property("contentHeight").toReal();
        if (item->inherits("QQuickFlickable") && item->height() < qMin(content, 44.0))
            found.push_back(description(*item) + " has no room");
    }
    for (const std::string& overlap : overlaps(seen))
        found.push_back(overlap);
    return found;
}

} // namespace reelsmith
