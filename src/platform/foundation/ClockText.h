// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace reelsmith {

/// A length of time as a clock writes it: minutes and seconds, and hours where there are any: "3:12",
/// "1:02:05". `minuteDigits`: how many the minutes have at least where they come first.
QString clockText(qint64 seconds, int minuteDigits);

} // namespace reelsmith
