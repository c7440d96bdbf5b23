// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/Analytics.h"
#include "platform/services/Installations.h"
#include "platform/services/RemoteConfig.h"

#include <memory>

namespace reelsmith {

/// The services that the application reaches: those of the last `configure`, and until then ones that stand
/// for "nothing configured": fetches and tokens fail with an error, look-ups yield nothing, events and
/// properties are accepted and go nowhere. Any thread.
class Services {
public:
    /// One implementation each; where one is null, nothing is configured.
    struct Backends {
        std::shared_ptr<RemoteConfig> remoteConfig;
        std::shared_ptr<Installations> installations;
        std::shared_ptr<Analytics> analytics;
    };

    Services() = delete;

    /// Hands the services over; for the composition root, before anything asks for one.
    static void configure(Backends backends);

    static std::shared_ptr<RemoteConfig> remoteConfig();
    static std::shared_ptr<Installations> installations();
    static std::shared_ptr<Analytics> analytics();
};

} // namespace reelsmith
