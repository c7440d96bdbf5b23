// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/InterruptSignals.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace reelsmith {

InterruptSignals::InterruptSignals(std::function<void()> handler) : m_handler(std::move(handler)) {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    struct sigaction hangup {};
    if (::sigaction(SIGHUP, nullptr, &hangup) == 0 && hangup.sa_handler != SIG_IGN)
        sigaddset(&set, SIGHUP);
    // Threads made from now on inherit the mask, so the signals come by this descriptor only.
    ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
    m_descriptor = ::signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        signalfd_siginfo received{};
        if (::read(m_descriptor, &received, sizeof received) == sizeof received)
            m_handler();
    });
}

InterruptSignals::~InterruptSignals() {
    m_notifier.reset();
    ::close(m_descriptor);
}

} // namespace reelsmith
