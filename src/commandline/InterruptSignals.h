// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace reelsmith {

/// Turns the signals that ask a program to end (SIGINT, SIGTERM and, unless it was started to outlive its
/// terminal, SIGHUP) into a call on the event loop. Make it on the main thread, before there are other
/// threads that do not block these signals.
class InterruptSignals {
public:
    explicit InterruptSignals(std::function<void()> handler);
    ~InterruptSignals();
    InterruptSignals(const InterruptSignals&) = delete;
    InterruptSignals& operator=(const InterruptSignals&) = delete;

private:
    std::function<void()> m_handler;
    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace reelsmith
