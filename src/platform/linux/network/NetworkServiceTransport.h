// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/ServiceTransport.h"

#include <QThread>
#include <memory>
#include <mutex>

class QNetworkAccessManager;

namespace reelsmith {

/// Posts over http and https on a thread of its own. Thread and sockets are made for the first request, so a
/// program that posts nothing has none of them.
class NetworkServiceTransport : public ServiceTransport {
public:
    NetworkServiceTransport();

    /// Not from a completion.
    ~NetworkServiceTransport() override;

    void post(const ServiceRequest& request, Completion completion) override;

    /// Ends the exchanges under way and the thread, without waiting for any service; requests from now on are
    /// dropped. Must have been called before the application object goes; not from a completion.
    void stop();

private:
    enum class State { Unused, Running, Stopped };

    std::mutex m_mutex;
    State m_state = State::Unused;
    QThread m_thread;
    std::unique_ptr<QNetworkAccessManager> m_manager; // lives on the thread
};

} // namespace reelsmith
