// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEasingCurve>
#include <QPointer>
#include <QQuickItem>
#include <chrono>
#include <functional>
#include <vector>

namespace reelsmith {

/// One number on several items, going from one value to another.
struct Movement {
    QPointer<QQuickItem> item;
    const char* property;
    qreal from;
    qreal to;
};

/// Moves all at once and calls `done` exactly once when they have arrived, never before this has returned,
/// and never after `owner` has gone. Items that go meanwhile are left out. Main thread.
void animate(QObject& owner, std::vector<Movement> movements, std::chrono::milliseconds duration,
             QEasingCurve::Type curve, std::function<void()> done);

} // namespace reelsmith
