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
    services.remoteConfig->reset();
    services.installations->reset();
    services.analytics->reset();
    return services;
}

} // namespace reelsmith
