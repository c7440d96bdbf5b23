// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace reelsmith::mediaworker {

/// Has the kernel answer EPERM to every system call that reaches beyond this process and its open
/// descriptors: paths, sockets, programs, other processes, and corners of the kernel that have no business
/// here. It knows no paths, so it refuses opening altogether, which also holds on kernels without Landlock.
/// Threads, memory, and reading, writing and being sent descriptors stay. Call before any thread runs.
/// Returns why it failed, or nothing.
std::string refuseSystemCalls();

} // namespace reelsmith::mediaworker
