// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

extern "C" {
#include <libavutil/pixfmt.h>
}

namespace reelsmith::media {

/// Linear light: red, green and blue.
using Light = std::array<double, 3>;

/// A linear map of Light, row by row.
using LightMatrix = std::array<Light, 3>;

Light operator*(const LightMatrix& matrix, const Light& light);

/// How much each of the primaries adds to luminance. Unknown primaries are taken as those of BT.2020.
Light luminanceWeights(AVColorPrimaries primaries);

/// Takes light in the primaries `from` to the same colour in BT.709's; outside of that gamut, entries turn
/// negative. White stays white also where the two differ in it. Unknown primaries are taken as those of
/// BT.2020.
LightMatrix gamutToBt709(AVColorPrimaries from);

} // namespace reelsmith::media
