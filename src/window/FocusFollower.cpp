// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/FocusFollower.h"

#include "platform/uikit/KeyboardManager.h"

#include <QQuickWindow>

namespace reelsmith {
namespace {

/// What stays visible above and below, in points.
constexpr qreal margin = 12;

} // namespace

void FocusFollower::setFlickable(QQuickItem* flickable) {
    if (m_flickable == flickable)
        return;
    if (m_flickable)
        m_flickable->disconnect(this);
    m_flickable = flickable;
    if (m_flickable) {
        connect(m_flickable, &QQuickItem::windowChanged, this, &FocusFollower::followWindow);
        followWindow(m_flickable->window());
    }
    emit flickableChanged();
}

void FocusFollower::staySeen() {
    if (KeyboardManager::shared().isEnabled())
        reveal();
}

void FocusFollower::followWindow(QQuickWindow* window) {
    if (m_window)
        m_window->disconnect(this);
    m_window = window;
    if (m_window)
        connect(m_window, &QQuickWindow::activeFocusItemChanged, this, &FocusFollower::reveal);
}

void FocusFollower::reveal() {
    const QQuickItem* focused = m_window ? m_window->activeFocusItem() : nullptr;
    if (!focused || !m_flickable->isAncestorOf(focused))
        return;
    const QRectF place = focused->mapRectToItem(m_flickable, {QPointF(), focused->size()});
    const qreal contentY = m_flickable->property("contentY").toReal();
    const qreal lowest = qMax(0.0, m_flickable->property("contentHeight").toReal() - m_flickable->height());
    const qreal tooLow = qMax(0.0, place.bottom() + margin - m_flickable->height());
    const qreal tooHigh = qMax(0.0, margin - (place.top() - tooLow));
    m_flickable->setProperty("contentY", qBound(0.0, contentY + tooLow - tooHigh, lowest));
}

} // namespace reelsmith
