// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Services.h"

#include "platform/services/Unconfigured.h"

#include <mutex>
#include <utility>

namespace reelsmith {

namespace {

std::mutex backendsMutex;

Services::Backends& configuredBackends() {
    static Services::Backends backends = unconfiguredBackends();
    return backends;
}

template<typename Service>
std::shared_ptr<Service> configured(std::shared_ptr<Service> Services::Backends::*service) {
    const std::lock_guard lock(backendsMutex);
    return configuredBackends().*service;
}

} // namespace

void Services::configure(Backends backends) {
    const Backends unconfigured = unconfiguredBackends();
    if (!backends.remoteConfig)
        backends.remoteConfig = unconfigured.remoteConfig;
    if (!backends.installations)
        backends.installations = unconfigured.installations;
    if (!backends.analytics)
        backends.analytics = unconfigured.analytics;
    const std::lock_guard lock(backendsMutex);
    configuredBackends() = std::move(backends);
}

std::shared_ptr<RemoteConfig> Services::remoteConfig() {
    return configured(&Backends::remoteConfig);
}

std::shared_ptr<Installations> Services::installations() {
    return configured(&Backends::installations);
}

std::shared_ptr<Analytics> Services::analytics() {
    return configured(&Backends::analytics);
}

} // namespace reelsmith
