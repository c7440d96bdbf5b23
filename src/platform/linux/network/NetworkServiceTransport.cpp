// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkServiceTransport.h"

#include "platform/linux/network/ServiceExchange.h"
#include "platform/linux/network/ServiceProxies.h"

#include <QNetworkAccessManager>

namespace reelsmith {

NetworkServiceTransport::NetworkServiceTransport() {
    m_thread.setObjectName(QStringLiteral("services"));
}

NetworkServiceTransport::~NetworkServiceTransport() {
    stop();
}

void NetworkServiceTransport::post(const ServiceRequest& request, Completion completion) {
    const std::lock_guard lock(m_mutex);
    if (m_state == State::Stopped)
        return;
    if (m_state == State::Unused) {
        m_manager = std::make_unique<QNetworkAccessManager>();
        m_manager->setProxyFactory(new ServiceProxies);
        m_manager->moveToThread(&m_thread);
        m_thread.start();
        m_state = State::Running;
    }
    QMetaObject::invokeMethod(
        m_manager.get(),
        [manager = m_manager.get(), request, completion = std::move(completion)]() mutable {
            new ServiceExchange(*manager, request, std::move(completion));
        },
        Qt::QueuedConnection);
}

void NetworkServiceTransport::stop() {
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(m_state, State::Stopped) != State::Running)
            return;
    }
    // What belongs to the thread goes on the thread.
    QMetaObject::invokeMethod(
        m_manager.get(),
        [this] {
            m_manager.reset();
            m_thread.quit();
        },
        Qt::QueuedConnection);
    m_thread.wait();
}

} // namespace reelsmith
