// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkServices.h"

#include "platform/services/LocalInstallations.h"
#include "platform/services/OfrepRemoteConfig.h"
#include "platform/services/ServiceConfiguration.h"

namespace reelsmith {

NetworkServices::NetworkServices() {
    const ServiceConfiguration configuration = ServiceConfiguration::read();
    const auto installations = std::make_shared<LocalInstallations>();
    m_backends.installations = installations;
    if (configuration.remoteConfig) {
        m_backends.remoteConfig =
            std::make_shared<OfrepRemoteConfig>(*configuration.remoteConfig, m_transport, installations);
    }
}

NetworkServices::~NetworkServices() {
    Services::configure({});
    m_backends = {};
    m_transport->stop();
}

} // namespace reelsmith
