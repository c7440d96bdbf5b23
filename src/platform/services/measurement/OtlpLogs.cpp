// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/OtlpLogs.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace reelsmith {

namespace {

// The protocol writes 64-bit integers as texts.
QString integerText(qint64 value) {
    return QString::number(value);
}

QJsonObject anyValue(const AnalyticsValue& value) {
    if (const auto* const integer = std::get_if<qint64>(&value))
        return {{QStringLiteral("intValue"), integerText(*integer)}};
    return {{QStringLiteral("stringValue"), std::get<QString>(value)}};
}

QJsonObject attribute(const QString& key, const AnalyticsValue& value) {
    return {{QStringLiteral("key"), key}, {QStringLiteral("value"), anyValue(value)}};
}

void appendAttributes(QJsonArray& attributes, const AnalyticsParameters& values) {
    for (auto value = values.begin(); value != values.end(); ++value)
        attributes.append(attribute(value.key(), value.value()));
}

QJsonObject resource(const AnalyticsParameters& properties, const OtlpService& service) {
    QJsonArray attributes{attribute(QStringLiteral("service.name"), service.name),
                          attribute(QStringLiteral("service.version"), service.version)};
    if (!service.instanceId.isEmpty())
        attributes.append(attribute(QStringLiteral("service.instance.id"), service.instanceId));
    appendAttributes(attributes, properties);
    return {{QStringLiteral("attributes"), attributes}};
}

QJsonObject logRecord(const MeasuredEvent& event) {
    QJsonArray attributes{attribute(QStringLiteral("log.record.uid"), event.id)};
    appendAttributes(attributes, event.parameters);
    const QString time = integerText(event.unixNanoseconds);
    return {{QStringLiteral("timeUnixNano"), time},
            {QStringLiteral("observedTimeUnixNano"), time},
            {QStringLiteral("eventName"), event.name},
            {QStringLiteral("attributes"), attributes}};
}

QJsonObject resourceLogs(const QList<StoredEvent>& events, const OtlpService& service) {
    QJsonArray records;
    for (const StoredEvent& stored : events)
        records.append(logRecord(stored.event));
    const QJsonObject scope{{QStringLiteral("name"), service.name},
                            {QStringLiteral("version"), service.version}};
    const QJsonObject scopeLogs{{QStringLiteral("scope"), scope}, {QStringLiteral("logRecords"), records}};
    return {{QStringLiteral("resource"), resource(events.front().properties, service)},
            {QStringLiteral("scopeLogs"), QJsonArray{scopeLogs}}};
}

// The protocol allows a receiver to write an integer as a number, too.
qint64 integer(const QJsonValue& value) {
    return value.isString() ? value.toString().toLongLong() : value.toInteger();
}

bool isRetryable(int status) {
    switch (status) {
    case 429:
    case 502:
    case 503:
    case 504:
        return true;
    default: // A redirection is nobody's verdict on the bundle: a network's own sign-in page sends such.
        return status < 400;
    }
}

} // namespace

QByteArray otlpLogs(const QList<StoredEvent>& bundle, const OtlpService& service) {
    QJsonArray groups;
    for (qsizetype first = 0, end = 0; first < bundle.size(); first = end) {
        while (end < bundle.size() && bundle[end].properties == bundle[first].properties)
            ++end;
        groups.append(resourceLogs(bundle.sliced(first, end - first), service));
    }
    const QJsonObject request{{QStringLiteral("resourceLogs"), groups}};
    return QJsonDocument(request).toJson(QJsonDocument::Compact);
}

OtlpAnswer OtlpAnswer::of(const ServiceResult& result) {
    if (!result)
        return {Verdict::RetryLater, 0, result.error().localizedDescription};
    const QJsonObject body = QJsonDocument::fromJson(result->body).object();
    if (result->status < 200 || result->status >= 300) {
        return {isRetryable(result->status) ? Verdict::RetryLater : Verdict::Refused, 0,
                QStringLiteral("status %1 %2")
                    .arg(result->status)
                    .arg(body.value(QLatin1StringView("message")).toString())};
    }
    const QJsonObject partial = body.value(QLatin1StringView("partialSuccess")).toObject();
    return {Verdict::Accepted, integer(partial.value(QLatin1StringView("rejectedLogRecords"))),
            partial.value(QLatin1StringView("errorMessage")).toString()};
}

} // namespace reelsmith
