// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "window/Appearance.h"

#include <QQuickItem>
#include <QQuickView>

namespace reelsmith {

/// A window with parts in it, where nothing takes time.
class Stage {
public:
    /// `qml`: one object, with QtQuick and the parts imported. It takes the whole window.
    explicit Stage(const QByteArray& qml, QSize size = {390, 844});

    Appearance& appearance() { return Appearance::of(*m_view.engine()); }
    QQuickView& window() { return m_view; }
    QObject& root() { return *m_view.rootObject(); }
    /// The item of that object name, or else a test failure.
    QQuickItem& item(const char* name);
    /// Where the item is in the window.
    QRectF place(const char* name);

    void resize(QSize size);
    void click(QPointF place);
    void press(Qt::Key key);

private:
    QQuickView m_view;
};

} // namespace reelsmith
