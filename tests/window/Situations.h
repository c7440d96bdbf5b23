// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "TestApplication.h"

namespace reelsmith {

/// What a user can have before them: how to get there from a first start.
struct Situation {
    const char* name;
    void (*reach)(TestApplication&);
};

/// Together they show every interface file.
const std::vector<Situation>& situations();

/// A name longer than any window is wide.
const QString longName = "Summer holidays with grandma and all of the cousins at the lake in the mountains";

} // namespace reelsmith
