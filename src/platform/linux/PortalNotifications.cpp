// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/PortalNotifications.h"

#include "platform/linux/bus/PortalRequest.h"

#include <QVariantMap>

namespace reelsmith {

namespace {

// One for all, so that each takes the place of the one before.
const QString notificationId = QStringLiteral("conversion");
// Without "app." in front the portal tells us instead of asking the desktop to start an action.
const QString tapAction = QStringLiteral("show");

QDBusMessage portalCall(const QString& method) {
    return PortalRequest::message(PortalRequest::interfaceName(QStringLiteral("Notification")), method);
}

} // namespace

PortalNotifications::PortalNotifications(const QDBusConnection& sessionBus) : m_bus(sessionBus) {
    const QDBusMessage portal = portalCall({});
    m_bus.connect(portal.service(), portal.path(), portal.interface(), QStringLiteral("ActionInvoked"), this,
                  SLOT(takeAction(QString, QString, QVariantList)));
}

void PortalNotifications::show(const UserNotification& notification) {
    const bool isStatus = notification.weight == UserNotification::Weight::Status;
    const QVariantMap content{
        {QStringLiteral("title"), notification.title},
        {QStringLiteral("body"), notification.body},
        {QStringLiteral("priority"), isStatus ? QStringLiteral("low") : QStringLiteral("normal")},
        {QStringLiteral("default-action"), tapAction},
    };
    call(QStringLiteral("AddNotification"), {notificationId, content});
}

void PortalNotifications::withdraw() {
    call(QStringLiteral("RemoveNotification"), {notificationId});
}

void PortalNotifications::takeAction(const QString& id, const QString& action,
                                     const QVariantList& /*parameter*/) {
    if (id == notificationId && action == tapAction)
        reportTap();
}

// Nobody waits for an answer: a desktop that shows nothing is none that the user could be told by.
void PortalNotifications::call(const QString& method, const QVariantList& arguments) {
    QDBusMessage message = portalCall(method);
    message.setArguments(arguments);
    m_bus.send(message);
}

} // namespace reelsmith
