// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/network/NetworkServiceTransport.h"
#include "platform/services/Services.h"

#include <memory>

namespace reelsmith {

/// The services of a program as its operator has configured them, for the composition root. What is not
/// configured is null; installations need no operator. Must go before the application object does.
class NetworkServices {
public:
    /// Reads the configuration; nothing is opened or sent yet.
    NetworkServices();

    /// Takes the services away from the application and ends all exchanges with them, without waiting for
    /// any.
    ~NetworkServices();

    NetworkServices(const NetworkServices&) = delete;
    NetworkServices& operator=(const NetworkServices&) = delete;

    /// What to configure `Services` with.
    const Services::Backends& backends() const { return m_backends; }

private:
    const std::shared_ptr<NetworkServiceTransport> m_transport = std::make_shared<NetworkServiceTransport>();
    Services::Backends m_backends;
};

} // namespace reelsmith
