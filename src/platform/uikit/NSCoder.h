// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// An archive of objects. No screen is made from one.
class NSCoder {};

} // namespace reelsmith
