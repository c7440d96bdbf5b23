// SPDX-License-Identifier: GPL-3.0-or-later
#include "RemoteSettings/RemoteValue.h"

#include <QByteArray>
#include <QString>
#include <charconv>

namespace reelsmith {

std::optional<bool> parseBoolean(QStringView text) {
    const QString lowered = text.toString().toLower();
    if (lowered == QLatin1StringView("true") || lowered == QLatin1StringView("1"))
        return true;
    if (lowered == QLatin1StringView("false") || lowered == QLatin1StringView("0"))
        return false;
    return std::nullopt;
}

std::optional<qint64> parseInteger(QStringView text) {
    // The standard parser takes a minus, but no plus.
    if (text.startsWith(u'+')) {
        text = text.sliced(1);
        if (text.startsWith(u'-'))
            return std::nullopt;
    }
    const QByteArray digits = text.toUtf8();
    qint64 value = 0;
    const auto [end, error] = std::from_chars(digits.cbegin(), digits.cend(), value);
    if (error != std::errc() || end != digits.cend())
        return std::nullopt;
    return value;
}

} // namespace reelsmith
