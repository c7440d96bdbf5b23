// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Notifications.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantList>

namespace reelsmith {

/// Notifications by the desktop portal; without it there are none.
class PortalNotifications : public QObject, public Notifications {
    Q_OBJECT

public:
    explicit PortalNotifications(const QDBusConnection& sessionBus);

    void show(const UserNotification& notification) override;
    void withdraw() override;

private slots:
    void takeAction(const QString& id, const QString& action, const QVariantList& parameter);

private:
    void call(const QString& method, const QVariantList& arguments);

    QDBusConnection m_bus;
};

} // namespace reelsmith
