// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/InMemoryServices.h"

#include "platform/services/Services.h"

namespace reelsmith {

InMemoryServices& InMemoryServices::fresh() {
    static InMemoryServices services = [] {
        InMemoryServices made;
        Services::configure({made.remoteConfig, made.installations, made.analytics});
        return made;
    }();
    services.remoteConfig->setState({});
    services.installations->token.reset();
    services.installations->error.reset();
    services.installations->refreshCount = 0;
    services.analytics->reset();
    return services;
}

} // namespace reelsmith
