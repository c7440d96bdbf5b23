// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/Lockdown.h"

#include "mediaworker/Landlock.h"
#include "mediaworker/SystemCallFilter.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <malloc.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace reelsmith::mediaworker {

namespace {

constexpr rlim_t descriptorLimit = 64;
constexpr int niceness = 10;
// This part of what is free on a disk stays free.
constexpr rlim_t reservedPart = 32;
// The kernel's own header for these, <linux/ioprio.h>, is not C++ in every release.
constexpr int ioprioWhoProcess = 1;
constexpr int lowestBestEffortPriority = 2 << 13 | 7;

/// Address space in use now, 0 when unknown.
std::uint64_t mappedBytes() {
    unsigned long long pages = 0;
    if (std::FILE* file = std::fopen("/proc/self/statm", "re")) {
        if (std::fscanf(file, "%llu", &pages) != 1)
            pages = 0;
        std::fclose(file);
    }
    return pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
}

/// Lowers a limit for good; one that is lower already stays.
bool lowerLimit(__rlimit_resource resource, rlim_t value) {
    rlimit limit{};
    if (::getrlimit(resource, &limit) != 0)
        return false;
    limit.rlim_max = std::min(limit.rlim_max, value);
    limit.rlim_cur = std::min(limit.rlim_cur, limit.rlim_max);
    return ::setrlimit(resource, &limit) == 0;
}

std::string limitResources(const Limits& limits) {
    // Every arena of the allocator reserves 64 MiB of address space, and every thread would like its own.
    ::mallopt(M_ARENA_MAX, 2);
    bool isLimited = lowerLimit(RLIMIT_CORE, 0) && lowerLimit(RLIMIT_NOFILE, descriptorLimit);
    if (mappedBytes() > limits.addressSpaceBytes)
        return ", address space not limited: more is mapped already";
    isLimited = lowerLimit(RLIMIT_AS, limits.addressSpaceBytes) && isLimited;
    return isLimited ? "" : ", resource limits refused";
}

/// Best effort: a worker in the foreground's way is a nuisance, not a danger.
void stepBack() {
    if (::getpriority(PRIO_PROCESS, 0) < niceness)
        ::setpriority(PRIO_PROCESS, 0, niceness);
    if (::sched_getscheduler(0) == SCHED_OTHER) {
        const sched_param parameters{};
        ::sched_setscheduler(0, SCHED_BATCH, &parameters);
    }
    ::syscall(SYS_ioprio_set, ioprioWhoProcess, 0, lowestBestEffortPriority);
}

} // namespace

void leaveSpaceBeside(int output) {
    // Too large a file is then an error of writing, not the end of the process.
    std::signal(SIGXFSZ, SIG_IGN);
    struct statvfs disk {};
    if (::fstatvfs(output, &disk) != 0 || disk.f_blocks == 0)
        return; // there are file systems that cannot tell
    const rlim_t freeBytes = rlim_t{disk.f_bavail} * disk.f_frsize;
    lowerLimit(RLIMIT_FSIZE, freeBytes - freeBytes / reservedPart);
}

Lockdown lockDown(const Limits& limits) {
    Lockdown result;
    const std::string limitsText = limitResources(limits);
    stepBack();
    // Whatever becomes of it later: it ends with the thread of the application that has started it.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) {
        result.text = "not locked down: new privileges cannot be given up";
        return result;
    }
    const PathRefusal paths = refusePaths();
    const std::string filterProblem = refuseSystemCalls();
    result.landlockVersion = paths.landlockVersion;
    result.isFiltered = filterProblem.empty();
    result.text =
        (paths.landlockVersion > 0 ? "Landlock " + std::to_string(paths.landlockVersion)
                                   : "no Landlock (" + paths.problem + ")") +
        (result.isFiltered ? ", system call filter" : ", no system call filter (" + filterProblem + ")") +
        limitsText;
    return result;
}

} // namespace reelsmith::mediaworker
