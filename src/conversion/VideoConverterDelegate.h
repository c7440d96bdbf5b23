// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "conversion/ProgressDisplay.h"

namespace reelsmith {

/// What a converter needs of its owner. Main thread.
class VideoConverterDelegate {
public:
    virtual ~VideoConverterDelegate() = default;

    /// Where progress is shown at this moment; null for nowhere.
    virtual ProgressDisplay* progressDisplay() = 0;
};

} // namespace reelsmith
