// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/SingleInstance.h"

#include "platform/linux/ApplicationInterface.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QVariantMap>

namespace reelsmith {

namespace {

constexpr int answerLimitMilliseconds = 5000;

QString objectPath(QString applicationId) {
    applicationId.replace(QLatin1Char('.'), QLatin1Char('/'));
    applicationId.replace(QLatin1Char('-'), QLatin1Char('_'));
    return QLatin1Char('/') + applicationId;
}

// The right to come to the front that whoever started this process has passed on.
QVariantMap platformData() {
    QVariantMap data;
    const auto take = [&data](const char* variable, const QString& key) {
        const QString value = qEnvironmentVariable(variable);
        if (!value.isEmpty())
            data.insert(key, value);
    };
    take("XDG_ACTIVATION_TOKEN", QStringLiteral("activation-token"));
    take("DESKTOP_STARTUP_ID", QStringLiteral("desktop-startup-id"));
    return data;
}

} // namespace

SingleInstance::SingleInstance(const QDBusConnection& sessionBus, const QString& applicationId)
    : m_bus(sessionBus), m_name(applicationId), m_path(objectPath(applicationId)) {
    new ApplicationInterface(*this);
}

SingleInstance::~SingleInstance() {
    m_bus.unregisterObject(m_path);
    if (m_isFirst)
        m_bus.unregisterService(m_name);
}

SingleInstance::Role SingleInstance::claim(const QList<QUrl>& files) {
    // The object first: a call may come as soon as the name is ours.
    if (!m_bus.isConnected() || !m_bus.registerObject(m_path, this, QDBusConnection::ExportAdaptors))
        return Role::Separate;
    const auto answer = m_bus.interface()->registerService(m_name, QDBusConnectionInterface::DontQueueService,
                                                           QDBusConnectionInterface::DontAllowReplacement);
    m_isFirst = answer.isValid() && answer.value() == QDBusConnectionInterface::ServiceRegistered;
    if (m_isFirst)
        return Role::First;
    m_bus.unregisterObject(m_path);
    return answer.isValid() && forward(files) ? Role::Forwarded : Role::Separate;
}

bool SingleInstance::forward(const QList<QUrl>& files) const {
    QDBusMessage call =
        QDBusMessage::createMethodCall(m_name, m_path, QStringLiteral("org.freedesktop.Application"),
                                       files.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    if (!files.isEmpty()) {
        QStringList urls;
        for (const QUrl& file : files)
            urls.append(QString::fromLatin1(file.toEncoded()));
        call << urls;
    }
    call << platformData();
    return m_bus.call(call, QDBus::Block, answerLimitMilliseconds).type() == QDBusMessage::ReplyMessage;
}

} // namespace reelsmith
