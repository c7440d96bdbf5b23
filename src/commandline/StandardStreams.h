// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>

namespace reelsmith {

/// Prints a line on standard output, byte by byte as it is, at once.
void printLine(const std::string& line);

/// Prints a line on standard error, made printable.
void printErrorLine(const QString& line);

/// The text with a "?" for all that does not print: names of files and what a worker says may hold anything,
/// a line feed or a terminal's commands too.
QString printable(QString text);

} // namespace reelsmith
