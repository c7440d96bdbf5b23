// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/TextFocus.h"
#include "platform/screens/PlatformServices.h"
#include "platform/uikit/DesktopAppearance.h"
#include "platform/uikit/Haptics.h"
#include "platform/uikit/Inhibitor.h"
#include "platform/uikit/LinkOpener.h"

#include <QString>
#include <memory>

namespace reelsmith {

/// The desktop's part in the platform: one of each, built on the session's and the system's bus. Where there
/// is no bus or no service, they do what their interfaces say for that case. Needs a QGuiApplication; main
/// thread.
struct LinuxPlatform {
    explicit LinuxPlatform(const QString& applicationId);

    std::unique_ptr<Inhibitor> sleepInhibitor;
    std::unique_ptr<Inhibitor> idleInhibitor;
    std::shared_ptr<LinkOpener> linkOpener;
    std::unique_ptr<Haptics> haptics;
    std::unique_ptr<DesktopAppearance> appearance;
    std::unique_ptr<TextFocus> textFocus;
    PlatformServices services;
};

} // namespace reelsmith
