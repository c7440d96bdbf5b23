// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace reelsmith {

/// Keeps what has the focus visible in a Flickable: scrolls to it when it gets the focus, and when told that
/// there is another place for it, as there is when the keyboard comes up.
class FocusFollower : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* flickable READ flickable WRITE setFlickable NOTIFY flickableChanged)

public:
    using QObject::QObject;

    QQuickItem* flickable() const { return m_flickable; } ///< may be null; not owned
    void setFlickable(QQuickItem* flickable);

    /// The Flickable or what is in it has another height.
    Q_INVOKABLE void staySeen();

signals:
    void flickableChanged();

private:
    void followWindow(QQuickWindow* window);
    void reveal();

    QPointer<QQuickItem> m_flickable;
    QPointer<QQuickWindow> m_window;
};

} // namespace reelsmith
