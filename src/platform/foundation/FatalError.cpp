// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/FatalError.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace reelsmith {

void fatalError(std::string_view text, std::string_view file, int line) {
    std::string message(file);
    message.append(":").append(std::to_string(line)).append(": Fatal error: ").append(text).append("\n");
    std::fwrite(message.data(), 1, message.size(), stderr);
    std::abort();
}

} // namespace reelsmith
