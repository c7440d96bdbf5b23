// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace reelsmith {

/// The quality that the user picks, in the order in which it is offered.
enum class ConversionQuality { low, medium, high };

/// The export preset for a quality. With the passthrough toggle on, each quality above low moves one step
/// up, high becoming a copy of the source's streams; low never moves.
QString exportPresetName(ConversionQuality quality, bool passthroughEnabled);

/// The same with the toggle's value of this moment, which is printed to the console. Any thread.
QString exportPresetName(ConversionQuality quality);

} // namespace reelsmith
