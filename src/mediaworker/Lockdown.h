// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace reelsmith::mediaworker {

struct Limits {
    /// All that the process may map. Left alone where it already maps more, as it does under a sanitizer.
    std::uint64_t addressSpaceBytes = 0;
};

/// What lockDown() achieved.
struct Lockdown {
    /// Version of the kernel's Landlock interface that now refuses every path; 0 without one.
    int landlockVersion = 0;
    /// Whether the system call filter stands. A worker without it must not read a single byte of a source.
    bool isFiltered = false;
    /// One line for the log: what holds, and why something does not.
    std::string text;
};

/// Gives up, for the rest of this process's life, all that decoding a video does not need: paths, sockets,
/// other programs and processes, and its place in front of what the user is doing. What stays are the
/// descriptors it has and those it is sent. The process ends with its parent. Call first in main(): threads
/// that run already keep their rights.
Lockdown lockDown(const Limits& limits);

/// Lets no file grow, for the rest of this process's life, beyond most of what is free where `output` lies:
/// the last of a disk is for others. Call before a byte of a source is read.
void leaveSpaceBeside(int output);

} // namespace reelsmith::mediaworker
