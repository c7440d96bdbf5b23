// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Preset.h"

#include <QString>
#include <optional>

namespace reelsmith {

/// The engine's preset for a preset name; nothing for a name that is none.
std::optional<media::Preset> enginePreset(const QString& presetName);

} // namespace reelsmith
