// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/network/NetworkServices.h"

#include "platform/services/LocalInstallations.h"
#include "platform/services/OfrepRemoteConfig.h"
#include "platform/services/ServiceConfiguration.h"
#include "platform/services/measurement/MeasurementEngine.h"

namespace reelsmith {

NetworkServices::NetworkServices() {
    const ServiceConfiguration configuration = ServiceConfiguration::read();
    const auto installations = std::make_shared<LocalInstallations>();
    m_backends.installations = installations;
    if (configuration.remoteConfig) {
        m_backends.remoteConfig =
            std::make_shared<OfrepRemoteConfig>(*configuration.remoteConfig, m_transport, installations);
    }
    m_backends.analytics = std::make_shared<MeasurementEngine>(
        StateFile::folder() + QStringLiteral("/measurement"),
        UploadParts{.endpoint = configuration.measurement,
                    .transport = m_transport,
                    .remoteConfig = m_backends.remoteConfig,
                    .installationId = [installations] { return installations->id(); }});
}

NetworkServices::~NetworkServices() {
    Services::configure({});
    m_backends = {};
    m_transport->stop();
}

} // namespace reelsmith
