// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mediaworker/Channel.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

/// What the fuzzer calls with each of its inputs; each target defines its own. 0 always.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace reelsmith::fuzz {

/// Ends the process, which is a finding, unless what must hold for every input does.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "It does not hold that %s.\n", what);
    std::abort();
}

/// A file in memory that holds the bytes.
inline mediaworker::Descriptor fileWith(const void* data, std::size_t size) {
    mediaworker::Descriptor file(::memfd_create("fuzz", MFD_CLOEXEC));
    require(::pwrite(file.number(), data, size, 0) == static_cast<ssize_t>(size), "memory holds a file");
    return file;
}

} // namespace reelsmith::fuzz
