// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/RemoteConfig.h"

#include <chrono>

namespace reelsmith {

/// What an operator may change from afar. A value that is missing or cannot be used leaves the default.
struct MeasurementSettings {
    bool isEnabled = true;                     ///< "measurement_enabled": whether anything is uploaded
    std::chrono::seconds uploadInterval{3600}; ///< "measurement_upload_interval_seconds", 1 or more
    int maximumBundle = 100;                   ///< "measurement_max_bundle", 1…100 events
    double sampling = 1;                       ///< "measurement_sampling", 0…1: the share that is uploaded

    /// The settings out of the values in force.
    static MeasurementSettings read(const RemoteConfig& remoteConfig);

    /// Whether an event belongs to the share: the same answer whenever it is asked, and one that holds for
    /// every larger share too.
    bool isSampled(const QString& eventId) const;

    bool operator==(const MeasurementSettings&) const = default;
};

} // namespace reelsmith
