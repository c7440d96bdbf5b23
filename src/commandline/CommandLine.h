// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// Does what the words of a command line ask for; the result is the program's exit status.
int runCommandLine(int argc, char** argv);

} // namespace reelsmith
