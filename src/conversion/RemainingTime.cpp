// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/RemainingTime.h"

#include <cmath>

namespace reelsmith {

namespace {

constexpr std::chrono::seconds tooEarly{3};
constexpr double tooLittle = 0.01;

// Rounded up, and the more coarsely the longer it takes.
QString about(double seconds) {
    if (seconds < 10)
        return QStringLiteral("a few seconds left");
    if (seconds <= 50)
        return QStringLiteral("about %1 s left").arg(std::llround(std::ceil(seconds / 10)) * 10);
    const qint64 minutes = std::llround(std::ceil(seconds / 60));
    if (minutes < 60)
        return QStringLiteral("about %1 min left").arg(minutes);
    return QStringLiteral("about %1 h %2 min left").arg(minutes / 60).arg(minutes % 60);
}

} // namespace

QString remainingTimeText(double fraction, std::chrono::milliseconds elapsed) {
    if (elapsed < tooEarly || !(fraction >= tooLittle) || fraction >= 1)
        return {};
    return about(static_cast<double>(elapsed.count()) / 1000 * (1 - fraction) / fraction);
}

} // namespace reelsmith
