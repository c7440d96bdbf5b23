// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/screens/PlatformServices.h"

namespace reelsmith {

PlatformServices& PlatformServices::shared() {
    static PlatformServices services;
    return services;
}

} // namespace reelsmith
