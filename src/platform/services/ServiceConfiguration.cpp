// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/ServiceConfiguration.h"

#include "platform/services/ServiceSettings.h"

#include <QRegularExpression>
#include <QtGlobal>

namespace reelsmith {

namespace {

using Endpoint = ServiceConfiguration::Endpoint;

template<typename T>
using Parser = std::optional<T> (*)(const QString& text);

/// The value of `key` as a T; none where there is none or none that can be used.
template<typename T>
std::optional<T> value(const ServiceSettings& settings, const char* key, Parser<T> parse) {
    const QString text = settings.text(QLatin1StringView(key));
    if (text.isEmpty())
        return std::nullopt;
    std::optional<T> parsed = parse(text);
    if (!parsed)
        qWarning("The services' setting %s cannot be used and is passed over", key);
    return parsed;
}

std::optional<QUrl> parseAddress(const QString& text) {
    const QUrl url(text, QUrl::StrictMode);
    return isServiceAddress(url) && !url.hasFragment() ? std::optional(url) : std::nullopt;
}

std::optional<std::chrono::milliseconds> parseMilliseconds(const QString& text) {
    bool isInteger = false;
    const int milliseconds = text.toInt(&isInteger);
    return isInteger && milliseconds > 0 ? std::optional(std::chrono::milliseconds(milliseconds))
                                         : std::nullopt;
}

bool isHeader(const QByteArray& name, const QByteArray& content) {
    static const QRegularExpression token(QStringLiteral(R"(\A[!#$%&'*+.^_`|~0-9A-Za-z-]+\z)"));
    const auto isControl = [](char character) {
        return (character >= 0 && character < ' ') || character == 127;
    };
    return token.match(QString::fromLatin1(name)).hasMatch() && std::ranges::none_of(content, isControl);
}

/// "name=value,name=value", both percent-encoded.
std::optional<ServiceHeaders> parseHeaders(const QString& text) {
    ServiceHeaders headers;
    for (const QByteArray& entry : text.toUtf8().split(',')) {
        if (entry.trimmed().isEmpty())
            continue;
        const auto equals = entry.indexOf('=');
        const QByteArray name = QByteArray::fromPercentEncoding(entry.left(equals).trimmed());
        const QByteArray content = QByteArray::fromPercentEncoding(entry.mid(equals + 1).trimmed());
        if (equals < 0 || !isHeader(name, content))
            return std::nullopt;
        headers.append({name, content});
    }
    return headers;
}

QUrl appendingPath(QUrl url, const QString& path) {
    QString base = url.path();
    while (base.endsWith(QLatin1Char('/')))
        base.chop(1);
    url.setPath(base + path);
    return url;
}

std::optional<Endpoint> readRemoteConfig(const ServiceSettings& settings) {
    const auto base = value(settings, "OFREP_ENDPOINT", parseAddress);
    if (!base)
        return std::nullopt;
    Endpoint endpoint{appendingPath(*base, QStringLiteral("/ofrep/v1/evaluate/flags"))};
    endpoint.headers = value(settings, "OFREP_HEADERS", parseHeaders).value_or(ServiceHeaders());
    endpoint.timeLimit = value(settings, "OFREP_TIMEOUT", parseMilliseconds).value_or(endpoint.timeLimit);
    return endpoint;
}

std::optional<Endpoint> readMeasurement(const ServiceSettings& settings) {
    auto url = value(settings, "OTEL_EXPORTER_OTLP_LOGS_ENDPOINT", parseAddress);
    if (!url) {
        if (const auto base = value(settings, "OTEL_EXPORTER_OTLP_ENDPOINT", parseAddress))
            url = appendingPath(*base, QStringLiteral("/v1/logs"));
    }
    if (!url)
        return std::nullopt;
    return Endpoint{*url,
                    value(settings, "OTEL_EXPORTER_OTLP_HEADERS", parseHeaders).value_or(ServiceHeaders())};
}

} // namespace

ServiceConfiguration ServiceConfiguration::read() {
    const ServiceSettings settings = ServiceSettings::read();
    return {readRemoteConfig(settings), readMeasurement(settings)};
}

} // namespace reelsmith
