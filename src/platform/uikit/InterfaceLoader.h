// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/Error.h"

#include <QString>

namespace reelsmith {

/// Makes the interface files of screens ready. This one has none and wants none: for a process without a
/// display. Main thread.
class InterfaceLoader {
public:
    virtual ~InterfaceLoader() = default;

    /// `name`: the file's name without its ending. An error when it is missing or no interface file.
    virtual Result<void> load(const QString& /*name*/) { return {}; }
};

} // namespace reelsmith
