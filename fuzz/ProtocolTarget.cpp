// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a message, of the application or of a worker.
#include "Target.h"

using namespace reelsmith;
using namespace mediaworker;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto message = decode(reinterpret_cast<const std::byte*>(data), size);
    if (!message)
        return 0;
    const std::vector<std::byte> bytes = encode(*message);
    fuzz::require(bytes.size() <= maximumMessageBytes, "a message fits into a datagram");
    // Texts may have been cut.
    const auto again = decode(bytes.data(), bytes.size());
    fuzz::require(again && encode(*again) == bytes, "a message survives the way over the line");
    return 0;
}
