// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/ServiceTwin.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

namespace reelsmith {

ServiceTwin::ServiceTwin(const QDBusConnection& bus) : m_bus(bus) {
    EXPECT_TRUE(m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath));
}

void ServiceTwin::answerRequest(const QString& method, uint code, const QVariantMap& results) {
    answer(method, [this, code, results](const QDBusMessage& call) {
        respond(call, code, results);
        return QVariantList{QVariant::fromValue(QDBusObjectPath(requestPath(call)))};
    });
}

void ServiceTwin::acceptRequest(const QString& method) {
    answer(method, [](const QDBusMessage& call) {
        return QVariantList{QVariant::fromValue(QDBusObjectPath(requestPath(call)))};
    });
}

void ServiceTwin::respond(const QDBusMessage& call, uint code, const QVariantMap& results) {
    QDBusMessage response = QDBusMessage::createTargetedSignal(
        call.service(), requestPath(call), QStringLiteral("org.freedesktop.portal.Request"),
        QStringLiteral("Response"));
    response << code << results;
    m_bus.send(response);
}

QString ServiceTwin::requestPath(const QDBusMessage& call) {
    const auto options = qdbus_cast<QVariantMap>(call.arguments().constLast());
    const QString sender = call.service().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
        .arg(sender, options.value(QStringLiteral("handle_token")).toString());
}

QList<QDBusMessage> ServiceTwin::calls(const QString& method) const {
    QList<QDBusMessage> result;
    for (const QDBusMessage& call : m_calls) {
        if (call.member() == method)
            result.append(call);
    }
    return result;
}

bool ServiceTwin::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    m_calls.append(message);
    const auto answer = m_answers.find(message.interface() + QLatin1Char('.') + message.member());
    const auto reply = answer == m_answers.end() ? std::nullopt : answer->second(message);
    return reply && connection.send(message.createReply(*reply));
}

} // namespace reelsmith
