// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace reelsmith::mediaworker {

/// Has the kernel answer EPERM to every system call that reaches beyond this process and the bytes behind its
/// descriptors: paths, sockets, programs, other processes, modes and locks of files, and corners of the
/// kernel that have no business here. It knows no paths, so it refuses opening altogether, which also holds
/// on kernels without Landlock; only whether a path exists, and its size, can still be asked. Threads,
/// memory, and reading, writing and being sent descriptors stay. Call before any thread runs.
/// Returns why it failed, or nothing.
std::string refuseSystemCalls();

} // namespace reelsmith::mediaworker
