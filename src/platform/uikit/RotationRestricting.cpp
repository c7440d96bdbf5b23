// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/uikit/RotationRestricting.h"

#include "platform/uikit/UIApplication.h"

namespace reelsmith {

RotationRestricting* RotationRestricting::ofApplication() {
    return dynamic_cast<RotationRestricting*>(UIApplication::shared().delegate());
}

} // namespace reelsmith
