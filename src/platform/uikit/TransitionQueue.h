// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <deque>
#include <functional>

namespace reelsmith {

/// Changes of screens, one at a time and in the order in which they were asked for. Main thread.
class TransitionQueue : public QObject {
public:
    using Done = std::function<void()>;

    /// A change, begun when its turn has come; it must call what it is given once it is over.
    using Change = std::function<void(Done done)>;

    /// Begins the change at once when none is under way.
    void add(Change change);

    bool isIdle() const { return !m_isRunning && m_changes.empty(); }

private:
    void runNext();

    std::deque<Change> m_changes;
    bool m_isRunning = false;
};

} // namespace reelsmith
