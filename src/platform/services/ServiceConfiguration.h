// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/ServiceTransport.h"

#include <QUrl>
#include <chrono>
#include <optional>

namespace reelsmith {

/// Which services an operator has configured (docs/services.md): nothing, unless told.
/// For each key the first place that names it decides: the environment (where empty is unnamed), then
/// "reelsmith/services.ini" in the user's configuration folder, then in the system's. A value that cannot be
/// used is as none, and is named in the log when it is read, without its text, which may be a secret.
struct ServiceConfiguration {
    /// A service to post to.
    struct Endpoint {
        QUrl url; ///< whole, one that `isServiceAddress` holds for
        ServiceHeaders headers = {};
        std::chrono::milliseconds timeLimit = std::chrono::seconds(10); ///< for each exchange

        bool operator==(const Endpoint&) const = default;
    };

    std::optional<Endpoint> remoteConfig;
    std::optional<Endpoint> measurement;

    /// The configuration as it is now. Once a launch; any thread.
    static ServiceConfiguration read();
};

} // namespace reelsmith
