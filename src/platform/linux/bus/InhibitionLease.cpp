// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/InhibitionLease.h"

#include "platform/linux/bus/BusCall.h"
#include "platform/linux/bus/PortalRequest.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <utility>

namespace reelsmith {

namespace {

const QString who = QStringLiteral("Reelsmith");
const QString why = QStringLiteral("Reelsmith is at work");
constexpr uint idleFlag = 8;

using FromReply = std::function<InhibitionLease(const QDBusMessage& reply)>;

TakeLease leaseByCall(const QDBusConnection& bus, const QDBusMessage& call, FromReply fromReply) {
    return [bus, call, fromReply = std::move(fromReply)](std::function<void(InhibitionLease)> taken) {
        callBus(bus, call, QCoreApplication::instance(),
                [fromReply, taken = std::move(taken)](const QDBusMessage& reply) {
                    const bool isGranted =
                        reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty();
                    taken(isGranted ? fromReply(reply) : nullptr);
                });
    };
}

// A lease that ends with a message to the service.
InhibitionLease endedBy(const QDBusConnection& bus, const QDBusMessage& release) {
    return InhibitionLease(new char, [bus, release](const char* lease) {
        bus.send(release);
        delete lease;
    });
}

QDBusMessage screenSaverCall(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.ScreenSaver"),
                                          QStringLiteral("/org/freedesktop/ScreenSaver"),
                                          QStringLiteral("org.freedesktop.ScreenSaver"), method);
}

} // namespace

TakeLease portalIdleLease(const QDBusConnection& sessionBus) {
    QDBusMessage call = PortalRequest::message(PortalRequest::interfaceName(QStringLiteral("Inhibit")),
                                               QStringLiteral("Inhibit"));
    call << QString() << idleFlag << QVariantMap{{QStringLiteral("reason"), why}};
    return leaseByCall(sessionBus, call, [sessionBus](const QDBusMessage& reply) {
        const QString handle = reply.arguments().constFirst().value<QDBusObjectPath>().path();
        return endedBy(sessionBus,
                       QDBusMessage::createMethodCall(reply.service(), handle,
                                                      QStringLiteral("org.freedesktop.portal.Request"),
                                                      QStringLiteral("Close")));
    });
}

TakeLease screenSaverLease(const QDBusConnection& sessionBus) {
    QDBusMessage call = screenSaverCall(QStringLiteral("Inhibit"));
    call << who << why;
    return leaseByCall(sessionBus, call, [sessionBus](const QDBusMessage& reply) {
        QDBusMessage release = screenSaverCall(QStringLiteral("UnInhibit"));
        release << reply.arguments().constFirst().toUInt();
        return endedBy(sessionBus, release);
    });
}

TakeLease loginManagerLease(const QDBusConnection& systemBus, const QString& what) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    call << what << who << why << QStringLiteral("block");
    return leaseByCall(systemBus, call, [](const QDBusMessage& reply) {
        return std::make_shared<QDBusUnixFileDescriptor>(
            reply.arguments().constFirst().value<QDBusUnixFileDescriptor>());
    });
}

} // namespace reelsmith
