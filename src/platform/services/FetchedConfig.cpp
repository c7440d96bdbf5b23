// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FetchedConfig.h"

#include "platform/services/Ofrep.h"
#include "platform/services/RetryTime.h"

#include <QJsonDocument>
#include <utility>

namespace reelsmith {

namespace {

enum Status { Ok = 200, NotModified = 304, TooManyRequests = 429 };

const QLatin1StringView originKey("origin");
const QLatin1StringView valuesKey("values");
const QLatin1StringView entityTagKey("entityTag");
const QLatin1StringView fetchedAtKey("fetchedAt");
const QLatin1StringView throttledAtKey("throttledAt");
const QLatin1StringView throttledUntilKey("throttledUntil");

QString text(const QDateTime& time) {
    return time.toUTC().toString(Qt::ISODateWithMs);
}

QDateTime time(const QJsonValue& json) {
    return QDateTime::fromString(json.toString(), Qt::ISODateWithMs);
}

} // namespace

FetchedConfig FetchedConfig::fromJson(const QByteArray& json) {
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    FetchedConfig config(object[originKey].toString());
    config.m_values = remoteValues(object[valuesKey]);
    config.m_entityTag = object[entityTagKey].toString().toLatin1();
    config.m_fetchedAt = time(object[fetchedAtKey]);
    config.m_throttledAt = time(object[throttledAtKey]);
    config.m_throttledUntil = time(object[throttledUntilKey]);
    return config;
}

QByteArray FetchedConfig::toJson() const {
    QJsonObject object{
        {originKey, m_origin},
        {entityTagKey, QString::fromLatin1(m_entityTag)},
        {fetchedAtKey, text(m_fetchedAt)},
        {throttledAtKey, text(m_throttledAt)},
        {throttledUntilKey, text(m_throttledUntil)},
    };
    if (m_values)
        object.insert(valuesKey, reelsmith::toJson(*m_values));
    return QJsonDocument(object).toJson();
}

bool FetchedConfig::isFresh(std::chrono::seconds expiration, const QDateTime& now) const {
    return m_values && m_fetchedAt.isValid() && m_fetchedAt <= now &&
           now < m_fetchedAt.addDuration(expiration);
}

bool FetchedConfig::isThrottled(const QDateTime& now) const {
    return m_throttledAt.isValid() && m_throttledAt <= now && now < m_throttledUntil;
}

tl::expected<RemoteConfigFetchStatus, ServiceError> FetchedConfig::take(const ServiceAnswer& answer,
                                                                        const QDateTime& now) {
    if (answer.status == TooManyRequests) {
        // The protocol's first description called the header "Retry-Later".
        const auto wish = answer.header("Retry-After").value_or(answer.header("Retry-Later").value_or(""));
        m_throttledAt = now;
        m_throttledUntil = retryTime(wish, now).value_or(now);
        return RemoteConfigFetchStatus::Throttled;
    }
    if (answer.status == Ok) {
        auto flags = Ofrep::flags(answer.body);
        if (!flags)
            return tl::unexpected(flags.error());
        m_values = std::move(*flags);
        m_entityTag = answer.header("ETag").value_or("");
    } else if (answer.status != NotModified || !m_values) {
        return tl::unexpected(Ofrep::error(answer));
    }
    m_fetchedAt = now;
    return RemoteConfigFetchStatus::Success;
}

} // namespace reelsmith
