// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QString>
#include <functional>
#include <memory>

namespace reelsmith {

/// An inhibition that a service has granted; it ends with the last copy.
using InhibitionLease = std::shared_ptr<const void>;

/// Asks a service for a lease. Has its argument called once, later, on the main thread, with the lease, or
/// with null where the service refuses or is not there.
using TakeLease = std::function<void(std::function<void(InhibitionLease)>)>;

/// Keeps the screen from dimming and locking, by the desktop portal.
TakeLease portalIdleLease(const QDBusConnection& sessionBus);

/// The same by the desktop's screen saver.
TakeLease screenSaverLease(const QDBusConnection& sessionBus);

/// By the login manager; `what` is "sleep" or "idle".
TakeLease loginManagerLease(const QDBusConnection& systemBus, const QString& what);

} // namespace reelsmith
