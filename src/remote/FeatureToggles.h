// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

// The application's switches under remote control.
namespace reelsmith::FeatureToggles {

/// Moves the export preset of each quality above low one step up, high to a copy of the source's streams.
struct PassthroughEnabled {
    static constexpr QLatin1StringView key{"enable_passthrough_preset"};
    static constexpr bool defaultValue = false;

    PassthroughEnabled() = delete;
};

} // namespace reelsmith::FeatureToggles
