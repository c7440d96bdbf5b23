// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <optional>

namespace reelsmith {

/// When a service wants to be asked again, at the latest in a week: the value of its "Retry-After", in
/// seconds from `now`, as a date of HTTP or as one of ISO 8601. None for anything else.
std::optional<QDateTime> retryTime(const QByteArray& retryAfter, const QDateTime& now);

} // namespace reelsmith
