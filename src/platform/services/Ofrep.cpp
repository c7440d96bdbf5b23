// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Ofrep.h"

#include "platform/services/ExactJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace reelsmith {

namespace {

const QLatin1StringView errorCodeKey("errorCode");

ServiceError malformed(const QString& what) {
    return {QStringLiteral("The answer is not what the protocol prescribes: ") + what};
}

} // namespace

QByteArray Ofrep::requestBody(const QString& installationId) {
    const QJsonObject context{
        {QStringLiteral("targetingKey"), installationId},
        {QStringLiteral("appVersion"), QStringLiteral(REELSMITH_VERSION)},
        {QStringLiteral("platform"), QStringLiteral("linux")},
    };
    return QJsonDocument(QJsonObject{{QStringLiteral("context"), context}}).toJson(QJsonDocument::Compact);
}

tl::expected<RemoteValues, ServiceError> Ofrep::flags(const QByteArray& body) {
    QString error;
    const QJsonValue list = ExactJson::parse(body, error)[QLatin1StringView("flags")];
    if (!error.isEmpty())
        return tl::unexpected(malformed(error));
    if (!list.isArray())
        return tl::unexpected(malformed(QStringLiteral("no list of flags")));
    RemoteValues values;
    for (const QJsonValue flag : list.toArray()) {
        const QJsonValue key = flag[QLatin1StringView("key")];
        const bool isEvaluated = !ExactJson::text(flag[errorCodeKey]);
        if (ExactJson::isString(key) && isEvaluated)
            values.insert(key.toString(), ExactJson::text(flag[QLatin1StringView("value")]));
    }
    return values;
}

ServiceError Ofrep::error(const ServiceAnswer& answer) {
    const QString text = QStringLiteral("The configuration service answered %1").arg(answer.status);
    const QString code = QJsonDocument::fromJson(answer.body)[errorCodeKey].toString();
    return {code.isEmpty() ? text : text + QStringLiteral(", ") + code};
}

} // namespace reelsmith
