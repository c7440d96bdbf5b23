// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/RetryTime.h"

#include <algorithm>
#include <chrono>

namespace reelsmith {

namespace {

constexpr std::chrono::seconds longestWait = std::chrono::weeks(1);

QDateTime parseDate(const QString& text) {
    QDateTime date = QDateTime::fromString(text, Qt::ISODate);
    // RFC 2822 is the date of HTTP but for the name of the zone.
    if (!date.isValid() && text.endsWith(QLatin1StringView(" GMT")))
        date = QDateTime::fromString(text.chopped(3) + QLatin1StringView("+0000"), Qt::RFC2822Date);
    return date;
}

} // namespace

std::optional<QDateTime> retryTime(const QByteArray& retryAfter, const QDateTime& now) {
    bool isSeconds = false;
    const uint seconds = retryAfter.trimmed().toUInt(&isSeconds);
    const QDateTime latest = now.addDuration(longestWait);
    const QDateTime wanted =
        isSeconds ? now.addSecs(seconds) : parseDate(QString::fromLatin1(retryAfter.trimmed()));
    return wanted.isValid() ? std::optional(std::min(wanted, latest)) : std::nullopt;
}

} // namespace reelsmith
