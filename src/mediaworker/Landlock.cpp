// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/Landlock.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <linux/landlock.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace reelsmith::mediaworker {

namespace {

/// The kernel's landlock_ruleset_attr as it stands since version 6 of the interface; system headers may be
/// older than the running kernel. An older kernel takes the longer structure as long as what it does not know
/// is zero.
struct Ruleset {
    std::uint64_t handledFileAccess = 0;
    std::uint64_t handledNetworkAccess = 0;
    std::uint64_t scoped = 0;
};

constexpr std::uint64_t fileAccessOfVersion1 = (1U << 13) - 1; // EXECUTE up to MAKE_SYM
constexpr std::uint64_t refer = 1U << 13;
constexpr std::uint64_t truncate = 1U << 14;
constexpr std::uint64_t deviceControl = 1U << 15;
constexpr std::uint64_t bindAndConnectTcp = 1U << 0 | 1U << 1;
constexpr std::uint64_t abstractSocketsAndSignals = 1U << 0 | 1U << 1;

/// All that a version of the interface can handle; with no rule added, all of it is refused.
Ruleset everything(int version) {
    Ruleset ruleset{.handledFileAccess = fileAccessOfVersion1};
    if (version >= 2)
        ruleset.handledFileAccess |= refer;
    if (version >= 3)
        ruleset.handledFileAccess |= truncate;
    if (version >= 4)
        ruleset.handledNetworkAccess = bindAndConnectTcp;
    if (version >= 5)
        ruleset.handledFileAccess |= deviceControl;
    if (version >= 6)
        ruleset.scoped = abstractSocketsAndSignals;
    return ruleset;
}

} // namespace

PathRefusal refusePaths() {
    const long version = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1)
        return {0, std::strerror(errno)};
    const Ruleset ruleset = everything(static_cast<int>(version));
    const long descriptor = ::syscall(SYS_landlock_create_ruleset, &ruleset, sizeof ruleset, 0);
    if (descriptor < 0)
        return {0, std::strerror(errno)};
    const bool isInForce = ::syscall(SYS_landlock_restrict_self, descriptor, 0) == 0;
    const std::string problem = isInForce ? "" : std::strerror(errno);
    ::close(static_cast<int>(descriptor));
    return {isInForce ? static_cast<int>(version) : 0, problem};
}

} // namespace reelsmith::mediaworker
