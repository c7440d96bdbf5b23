// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QSizeF>
#include <QString>

/// How the facts about a video read.
namespace reelsmith {

/// "HH:MM:SS", with more digits for the hours where needed. A duration that is not finite, or that no 64-bit
/// number of seconds holds, is a fatal error.
QString durationText(double seconds);

/// "WIDTHxHEIGHT" without signs, in the locale's decimal style; "--" for a dimension that is no number.
QString resolutionText(const QSizeF& size, const QLocale& locale);

} // namespace reelsmith
