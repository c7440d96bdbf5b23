// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace reelsmith::mediaworker {

struct PathRefusal {
    int landlockVersion = 0; ///< of the kernel's interface that is now in force; 0 when nothing is
    std::string problem;     ///< why it is 0
};

/// Has the kernel refuse (EACCES) every path to this thread and those it starts, whatever the kernel's
/// version of Landlock knows of: files and folders from 5.13 on, TCP ports, device ioctls and abstract
/// sockets later. No path is excepted. What is open already stays usable, but not its name under
/// /proc/self/fd. Needs no_new_privs.
PathRefusal refusePaths();

} // namespace reelsmith::mediaworker
