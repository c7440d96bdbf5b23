// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace reelsmith {

/// Why a service could not do what it was asked.
struct ServiceError {
    QString localizedDescription;

    bool operator==(const ServiceError&) const = default;
};

} // namespace reelsmith
