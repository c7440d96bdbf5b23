// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <optional>

namespace reelsmith {

/// A remote string as a Boolean: "true" and "1", "false" and "0" in any case, nothing else, no blanks.
std::optional<bool> parseBoolean(QStringView text);

/// A remote string as a decimal integer: an optional sign, then digits, nothing else, no blanks.
/// None outside the 64-bit signed range.
std::optional<qint64> parseInteger(QStringView text);

} // namespace reelsmith
