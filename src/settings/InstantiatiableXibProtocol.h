// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/ContentView.h"

#include <memory>

namespace reelsmith {

/// What can load its content from an interface file named after its class. Main thread.
class InstantiatiableXibProtocol {
protected:
    /// The content for `runtimeClass`; a file that is missing or shows nothing is a fatal error.
    static std::unique_ptr<ContentView> loadContentView(const QMetaObject& runtimeClass);
};

} // namespace reelsmith
