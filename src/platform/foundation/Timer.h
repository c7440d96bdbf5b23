// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>

class QTimer;

namespace reelsmith {

/// A repeating timer of the main run loop.
class Timer {
public:
    using Hold = std::unique_lock<std::recursive_mutex>;

    /// Calls `fire` after each interval until invalidated. Call on the main thread.
    static std::shared_ptr<Timer> scheduledTimer(std::chrono::milliseconds interval,
                                                 std::function<void()> fire);

    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// Ends the timer: once this has returned it never fires again. Any thread.
    void invalidate();
    bool isValid() const;

    /// Keeps the timer from firing, and waits for a firing under way, until the hold is let go. Any thread.
    Hold hold() const { return Hold(m_firing); }

private:
    explicit Timer(std::function<void()> fire) : m_fire(std::move(fire)) {}
    void fire();

    mutable std::recursive_mutex m_firing;
    std::function<void()> m_fire;
    // Lives on the main thread and is deleted there.
    QTimer* m_timer = nullptr;
};

} // namespace reelsmith
