// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RemoteSettings/Variants.h"

#include <QLatin1StringView>
#include <QString>

// The application's experiments; docs/adding-an-experiment.md tells how to add one.
namespace reelsmith::Experiments {

/// The layout of the tab of converted videos: "variant_a" is the grid, everything else the list.
struct newVideoLayout {
    using Value = QString;
    static constexpr QLatin1StringView key{"new_video_layout_test"};
    static constexpr QLatin1StringView id{"3"};
    static constexpr QLatin1StringView defaultValue = Variants::defaultVariant;

    newVideoLayout() = delete;
};

} // namespace reelsmith::Experiments
