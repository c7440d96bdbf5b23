// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/ServiceTwin.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

namespace reelsmith {

namespace {

QVariantMap options(const QDBusMessage& call) {
    return call.arguments().isEmpty() ? QVariantMap() : qdbus_cast<QVariantMap>(call.arguments().constLast());
}

QString requestPath(const QDBusMessage& call) {
    return QString("/org/freedesktop/portal/desktop/request/%1/%2")
        .arg(call.service().mid(1).replace('.', '_'), options(call).value("handle_token").toString());
}

} // namespace

ServiceTwin::ServiceTwin(const QDBusConnection& bus) : m_bus(bus) {
    EXPECT_TRUE(m_bus.registerVirtualObject("/", this, QDBusConnection::SubPath));
}

void ServiceTwin::answerRequest(const QString& method, std::optional<uint> code, const QVariantMap& results) {
    answer(method, [this, code, results](const QDBusMessage& call) {
        if (code)
            respond(call, *code, results);
        return QVariantList{QVariant::fromValue(QDBusObjectPath(requestPath(call)))};
    });
}

void ServiceTwin::respond(const QDBusMessage& call, uint code, const QVariantMap& results) {
    m_bus.send(QDBusMessage::createTargetedSignal(call.service(), requestPath(call),
                                                  "org.freedesktop.portal.Request", "Response")
               << code << results);
}

QList<QDBusMessage> ServiceTwin::calls(const QString& method) const {
    QList<QDBusMessage> result;
    std::copy_if(m_calls.begin(), m_calls.end(), std::back_inserter(result),
                 [&method](const QDBusMessage& call) { return call.member() == method; });
    return result;
}

QVariant ServiceTwin::argument(const QString& method, int index) const {
    const QList<QDBusMessage> all = calls(method);
    return all.isEmpty() ? QVariant() : all.constLast().arguments().value(index);
}

QVariant ServiceTwin::option(const QString& method, const QString& name) const {
    const QList<QDBusMessage> all = calls(method);
    return all.isEmpty() ? QVariant() : options(all.constLast()).value(name);
}

bool ServiceTwin::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    m_calls.append(message);
    const auto answer = m_answers.find(message.interface() + '.' + message.member());
    const auto reply = answer == m_answers.end() ? std::nullopt : answer->second(message);
    return reply && connection.send(message.createReply(*reply));
}

} // namespace reelsmith
