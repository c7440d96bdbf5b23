// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>

namespace reelsmith {

/// Prints a line on standard output, byte by byte as it is, at once.
void printLine(const std::string& line);

/// Prints a line on standard error.
void printErrorLine(const QString& line);

} // namespace reelsmith
