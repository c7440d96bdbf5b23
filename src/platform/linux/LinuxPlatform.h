// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/TextFocus.h"
#include "platform/screens/PlatformServices.h"
#include "platform/uikit/DesktopAppearance.h"
#include "platform/uikit/Haptics.h"
#include "platform/uikit/Inhibitor.h"
#include "platform/uikit/LinkOpener.h"
#include "platform/uikit/Notifications.h"

#include <QString>
#include <memory>

namespace reelsmith {

/// The desktop's part in the platform: one of each, built on the session's and the system's bus. Where there
/// is no bus or no service, they do what their interfaces say for that case. Needs a QGuiApplication; main
/// thread.
struct LinuxPlatform {
    /// A platform without any of it.
    LinuxPlatform() = default;
    explicit LinuxPlatform(const QString& applicationId);

    std::unique_ptr<Inhibitor> sleepInhibitor = std::make_unique<Inhibitor>();
    std::unique_ptr<Inhibitor> idleInhibitor = std::make_unique<Inhibitor>();
    std::shared_ptr<LinkOpener> linkOpener = std::make_shared<LinkOpener>();
    std::unique_ptr<Notifications> notifications = std::make_unique<Notifications>();
    std::unique_ptr<Haptics> haptics = std::make_unique<Haptics>();
    std::unique_ptr<DesktopAppearance> appearance = std::make_unique<DesktopAppearance>();
    std::unique_ptr<TextFocus> textFocus; ///< null where no keyboard is to be shown
    PlatformServices services;
};

} // namespace reelsmith
