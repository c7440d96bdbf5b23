// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSizeF>

namespace reelsmith {

/// The main screen as the application sees it: the column that it has of the window. Main thread.
class UIScreen : public QObject {
    Q_OBJECT

public:
    static UIScreen& main();

    /// Tells the size of the window, in points.
    void setWindowSize(const QSizeF& size);

    /// The width is that of the window's shorter side, at most 480; the height is the window's.
    QSizeF size() const;

    /// Whether the window is as large as a tablet: 700 points at its shorter side.
    bool isTabletClass() const;

signals:
    void sizeChanged();

private:
    QSizeF m_window{390, 844};
};

} // namespace reelsmith
