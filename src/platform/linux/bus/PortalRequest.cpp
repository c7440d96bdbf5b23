// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/PortalRequest.h"

#include "platform/linux/bus/BusCall.h"

#include <QDBusServiceWatcher>
#include <utility>

namespace reelsmith {

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");

QString newToken() {
    static int count = 0;
    return QStringLiteral("reelsmith%1").arg(++count);
}

// Known before the call, so that no answer can come before we listen.
QString requestPath(const QDBusConnection& bus, const QString& token) {
    QString sender = bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("%1/request/%2/%3").arg(portalPath, sender, token);
}

} // namespace

PortalRequest* PortalRequest::send(const QDBusConnection& bus, const Call& call, Completion completion,
                                   QObject* parent) {
    auto* request = new PortalRequest(bus, std::move(completion), parent);
    request->send(call);
    return request;
}

PortalRequest::PortalRequest(const QDBusConnection& bus, Completion completion, QObject* parent)
    : QObject(parent),
      m_bus(bus),
      m_token(newToken()),
      m_path(requestPath(bus, m_token)),
      m_completion(std::move(completion)) {
    m_bus.connect(portalService, m_path, requestInterface, QStringLiteral("Response"), this,
                  SLOT(respond(uint, QVariantMap)));
    auto* portal =
        new QDBusServiceWatcher(portalService, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(portal, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { fail(QStringLiteral("The desktop's service has ended.")); });
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        withdraw();
        fail(QStringLiteral("The desktop has not answered."));
    });
}

PortalRequest::~PortalRequest() {
    if (m_completion)
        withdraw();
}

void PortalRequest::cancel() {
    if (!m_completion)
        return;
    withdraw();
    QMetaObject::invokeMethod(
        this,
        [this] {
            finish({Outcome::Cancelled, {}, {}});
        },
        Qt::QueuedConnection);
}

QUrl PortalRequest::pickedFile(const Answer& answer) {
    const QStringList files = answer.results.value(QStringLiteral("uris")).toStringList();
    const bool isPicked = answer.outcome == Outcome::Granted && !files.isEmpty();
    return isPicked ? QUrl::fromEncoded(files.constFirst().toUtf8()) : QUrl();
}

QDBusMessage PortalRequest::message(const QString& fullInterface, const QString& method) {
    return QDBusMessage::createMethodCall(portalService, portalPath, fullInterface, method);
}

QString PortalRequest::interfaceName(const QString& interface) {
    return QStringLiteral("org.freedesktop.portal.") + interface;
}

void PortalRequest::respond(uint code, const QVariantMap& results) {
    // A file dialog that is closed, by Escape say, answers neither 0 nor 1 in some desktops.
    if (code == 0)
        finish({Outcome::Granted, results, {}});
    else if (code == 1 || m_isFileDialog)
        finish({Outcome::Cancelled, results, {}});
    else
        fail(QStringLiteral("The desktop could not do it."));
}

void PortalRequest::send(Call call) {
    m_isFileDialog = call.interface == QLatin1String("FileChooser");
    call.options.insert(QStringLiteral("handle_token"), m_token);
    QDBusMessage request = message(interfaceName(call.interface), call.method);
    const QString noParentWindow = QStringLiteral("");
    request.setArguments(QVariantList{noParentWindow} + call.arguments + QVariantList{call.options});
    callBus(m_bus, request, this, [this, limit = call.limit](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ErrorMessage)
            fail(reply.errorMessage());
        else if (limit)
            m_limit.start(*limit);
    });
}

void PortalRequest::withdraw() {
    m_bus.send(
        QDBusMessage::createMethodCall(portalService, m_path, requestInterface, QStringLiteral("Close")));
}

void PortalRequest::finish(const Answer& answer) {
    const Completion completion = std::exchange(m_completion, {});
    if (!completion)
        return;
    deleteLater();
    completion(answer);
}

} // namespace reelsmith
