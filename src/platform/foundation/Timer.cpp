// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/Timer.h"

#include <QTimer>

namespace reelsmith {

std::shared_ptr<Timer> Timer::scheduledTimer(std::chrono::milliseconds interval, std::function<void()> fire) {
    std::shared_ptr<Timer> timer(new Timer(std::move(fire)));
    timer->m_timer = new QTimer;
    QObject::connect(timer->m_timer, &QTimer::timeout, timer->m_timer, [weak = std::weak_ptr(timer)] {
        if (const std::shared_ptr<Timer> self = weak.lock())
            self->fire();
    });
    timer->m_timer->start(interval);
    return timer;
}

Timer::~Timer() {
    invalidate();
}

void Timer::invalidate() {
    const Hold held = hold();
    if (m_timer)
        m_timer->deleteLater();
    m_timer = nullptr;
}

bool Timer::isValid() const {
    const Hold held = hold();
    return m_timer != nullptr;
}

void Timer::fire() {
    const Hold held = hold();
    if (m_timer)
        m_fire();
}

} // namespace reelsmith
