// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/InMemoryAnalytics.h"
#include "fakes/InMemoryInstallations.h"
#include "fakes/InMemoryRemoteConfig.h"

#include "platform/services/Services.h"

#include <memory>

namespace reelsmith {

/// The services of a whole process, in memory.
struct InMemoryServices {
    std::shared_ptr<InMemoryRemoteConfig> remoteConfig = std::make_shared<InMemoryRemoteConfig>();
    std::shared_ptr<InMemoryInstallations> installations = std::make_shared<InMemoryInstallations>();
    std::shared_ptr<InMemoryAnalytics> analytics = std::make_shared<InMemoryAnalytics>();

    /// The one instance, handed over to the application and emptied at each call.
    static InMemoryServices& fresh() {
        static InMemoryServices services;
        Services::configure({services.remoteConfig, services.installations, services.analytics});
        services.remoteConfig->setState({});
        *services.installations = {};
        services.analytics->reset();
        return services;
    }
};

} // namespace reelsmith
