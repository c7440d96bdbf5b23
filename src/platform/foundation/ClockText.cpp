// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/ClockText.h"

namespace reelsmith {

QString clockText(qint64 seconds, int minuteDigits) {
    const QString hours = seconds < 3600 ? QString() : QStringLiteral("%1:").arg(seconds / 3600);
    return hours + QStringLiteral("%1:%2")
                       .arg(seconds / 60 % 60, hours.isEmpty() ? minuteDigits : 2, 10, QLatin1Char('0'))
                       .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace reelsmith
