// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace reelsmith {

/// Stops the process over a programming error: prints "FILE:LINE: Fatal error: TEXT" to standard error
/// and aborts. `file` is the source's name below src/, without ending. Any thread.
[[noreturn]] void fatalError(std::string_view text, std::string_view file, int line);

} // namespace reelsmith
