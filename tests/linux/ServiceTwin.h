// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>

namespace reelsmith {

/// Services of the desktop, on all paths of a connection: they note every call and answer as they were told.
class ServiceTwin : public QDBusVirtualObject {
public:
    /// The reply's arguments; none for an error.
    using Answer = std::function<std::optional<QVariantList>(const QDBusMessage& call)>;

    explicit ServiceTwin(const QDBusConnection& bus);

    /// Owns `service` from now on, or no more.
    void appear(const QString& service) { EXPECT_TRUE(m_bus.registerService(service)); }
    void vanish(const QString& service) { EXPECT_TRUE(m_bus.unregisterService(service)); }

    /// Calls of `method`, written "Interface.Method", are answered so; other calls fail as unknown.
    void answer(const QString& method, Answer answer) { m_answers[method] = std::move(answer); }

    /// Accepts a portal's method; a request's result, if there is one, comes even before the call's own
    /// reply.
    void answerRequest(const QString& method, std::optional<uint> code, const QVariantMap& results = {});

    /// Sends the result of the request that a portal's method has begun.
    void respond(const QDBusMessage& call, uint code, const QVariantMap& results = {});

    /// The calls so far of a method, whatever its interface, and the last one's arguments.
    QList<QDBusMessage> calls(const QString& method) const;
    QVariant argument(const QString& method, int index) const;
    QVariant option(const QString& method, const QString& name) const; ///< of the map that comes last

    const QDBusConnection& bus() const { return m_bus; }

private:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    QDBusConnection m_bus;
    std::map<QString, Answer> m_answers;
    QList<QDBusMessage> m_calls;
};

} // namespace reelsmith
