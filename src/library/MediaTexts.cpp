// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/MediaTexts.h"

#include "platform/foundation/FatalError.h"

#include <cmath>

namespace reelsmith {

namespace {

// 2^63, the first whole number of seconds that a qint64 does not hold.
constexpr double endOfInteger = 9223372036854775808.0;

QString twoDigits(qint64 number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString dimensionText(double dimension, const QLocale& locale) {
    if (!(std::fabs(dimension) < endOfInteger))
        return QStringLiteral("--");
    return locale.toString(static_cast<qlonglong>(std::llround(std::fabs(dimension))));
}

} // namespace

QString durationText(double seconds) {
    if (!(std::fabs(seconds) < endOfInteger))
        fatalError("A duration is no number of seconds", "library/MediaTexts", __LINE__);
    const auto whole = static_cast<qint64>(seconds);
    return QStringList{twoDigits(whole / 3600), twoDigits(whole % 3600 / 60), twoDigits(whole % 3600 % 60)}
        .join(QLatin1Char(':'));
}

QString resolutionText(const QSizeF& size, const QLocale& locale) {
    return dimensionText(size.width(), locale) + QLatin1Char('x') + dimensionText(size.height(), locale);
}

} // namespace reelsmith
