// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/AppStreamPage.h"
#include "platform/linux/FeedbackHaptics.h"
#include "platform/linux/PortalAppearance.h"
#include "platform/linux/PortalDocumentChooser.h"
#include "platform/linux/PortalLinkOpener.h"
#include "platform/linux/PortalMailDrafts.h"
#include "platform/linux/PortalNotifications.h"
#include "platform/linux/ShellKeyboard.h"
#include "platform/linux/bus/DesktopInhibitor.h"
#include "platform/linux/mpris/MprisNowPlaying.h"
#include "platform/linux/sharing/DesktopFileSharing.h"

#include <utility>

namespace reelsmith {

namespace {

std::unique_ptr<Inhibitor> inhibitor(std::vector<TakeLease> ways) {
    return std::make_unique<DesktopInhibitor>(std::move(ways));
}

} // namespace

LinuxPlatform::LinuxPlatform(const QString& applicationId) {
    const QDBusConnection session = QDBusConnection::sessionBus();
    const QDBusConnection system = QDBusConnection::systemBus();
    sleepInhibitor = inhibitor({loginManagerLease(system, QStringLiteral("sleep"))});
    idleInhibitor = inhibitor({portalIdleLease(session), screenSaverLease(session),
                               loginManagerLease(system, QStringLiteral("idle"))});
    linkOpener = std::make_shared<PortalLinkOpener>(session);
    notifications = std::make_unique<PortalNotifications>(session);
    haptics = std::make_unique<FeedbackHaptics>(session, applicationId);
    appearance = std::make_unique<PortalAppearance>(session);
    textFocus = std::make_unique<TextFocus>(std::make_unique<ShellKeyboard>(session));
    services.documentChooser = std::make_unique<PortalDocumentChooser>(session);
    services.fileSharing = std::make_unique<DesktopFileSharing>(session);
    services.mailDrafts = std::make_unique<PortalMailDrafts>(session, linkOpener);
    services.nowPlaying = std::make_unique<MprisNowPlaying>(session, applicationId);
    services.storePage = std::make_unique<AppStreamPage>(linkOpener, applicationId);
}

} // namespace reelsmith
