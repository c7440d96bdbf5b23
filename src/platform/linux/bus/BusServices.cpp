// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/BusServices.h"

#include "platform/linux/bus/BusCall.h"
#include "platform/linux/bus/PortalRequest.h"

#include <QStringList>
#include <utility>

namespace reelsmith::busservices {

namespace {

QDBusMessage busQuestion(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

bool names(const QDBusMessage& reply, const QString& service) {
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.arguments().value(0).toStringList().contains(service);
}

} // namespace

void ask(const QDBusConnection& bus, const QString& service, QObject* context, Answer answer) {
    callBus(bus, busQuestion(QStringLiteral("ListNames")), context,
            [bus, service, context, answer = std::move(answer)](const QDBusMessage& running) {
                if (names(running, service)) {
                    answer(true);
                    return;
                }
                callBus(
                    bus, busQuestion(QStringLiteral("ListActivatableNames")), context,
                    [service, answer](const QDBusMessage& startable) { answer(names(startable, service)); });
            });
}

void askForPortal(const QDBusConnection& bus, const QString& interface, QObject* context, Answer answer) {
    QDBusMessage question =
        PortalRequest::message(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << PortalRequest::interfaceName(interface) << QStringLiteral("version");
    callBus(bus, question, context, [answer = std::move(answer)](const QDBusMessage& reply) {
        answer(reply.type() == QDBusMessage::ReplyMessage);
    });
}

} // namespace reelsmith::busservices
