// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace reelsmith {

/// Prints one line, which may hold line feeds of its own. Any thread; lines never mix.
/// Goes to standard output as UTF-8, flushed, unless a sink was set.
void console(const QString& line);

/// Takes the lines in the place of standard output. Called on the printing thread, one line at a time,
/// without the closing line feed; must not print to the console itself.
using ConsoleSink = std::function<void(const QString& line)>;

/// Sends the following lines to `sink`; an empty one brings standard output back. Any thread.
void setConsoleSink(ConsoleSink sink);

} // namespace reelsmith
