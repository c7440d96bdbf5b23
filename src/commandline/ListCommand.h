// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commandline/Arguments.h"

namespace reelsmith {

/// `reelsmith list`: prints name, duration and resolution of each converted file. The result is the exit
/// status.
int listConvertedVideos(const Arguments& arguments);

} // namespace reelsmith
