// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/RemoteConfig.h"
#include "platform/services/RemoteValues.h"
#include "platform/services/ServiceTransport.h"

#include <QDateTime>

namespace reelsmith {

/// What is known from asking a configuration service: the values of its last answer, how old they are, and
/// until when it does not want to be asked again. A value.
class FetchedConfig {
public:
    /// Nothing known yet. `origin` tells who was asked what: other questions have other answers.
    explicit FetchedConfig(QString origin = {}) : m_origin(std::move(origin)) {}

    /// What `toJson` has made; nothing known for anything else.
    static FetchedConfig fromJson(const QByteArray& json);
    QByteArray toJson() const;

    const QString& origin() const { return m_origin; }

    /// None before the first answer.
    const std::optional<RemoteValues>& values() const { return m_values; }

    /// What the service calls the version of the values; empty for none.
    const QByteArray& entityTag() const { return m_entityTag; }

    /// Whether the values are younger than `expiration`. What is from the future is not: a clock was set
    /// back.
    bool isFresh(std::chrono::seconds expiration, const QDateTime& now) const;

    /// Whether the service has asked to be left alone for now.
    bool isThrottled(const QDateTime& now) const;

    /// Takes in what the service has answered. An error leaves all as it was.
    tl::expected<RemoteConfigFetchStatus, ServiceError> take(const ServiceAnswer& answer,
                                                             const QDateTime& now);

private:
    QString m_origin;
    std::optional<RemoteValues> m_values;
    QByteArray m_entityTag;
    QDateTime m_fetchedAt;
    QDateTime m_throttledAt, m_throttledUntil;
};

} // namespace reelsmith
