// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/CustomPlayerVC.h"

#include "platform/uikit/RotationRestricting.h"
#include "platform/uikit/UIDevice.h"

namespace reelsmith {

void CustomPlayerVC::viewWillDisappear() {
    // Not viewWillDisappear(): what the player has begun ends when it has disappeared.
    AVPlayerViewController::viewWillAppear();
    if (auto* application = RotationRestricting::ofApplication())
        application->setRestrictRotation(true);
    UIDevice::current().setValue(static_cast<int>(UIDeviceOrientation::Portrait),
                                 QStringLiteral("orientation"));
}

} // namespace reelsmith
