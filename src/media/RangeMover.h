// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace reelsmith::media {

/// Copies ranges of bytes from one file into another, inside the kernel where the file systems allow it.
class RangeMover {
public:
    struct Range {
        std::int64_t from = 0; ///< position in the source
        std::int64_t to = 0;   ///< position in the destination
        std::int64_t sizeBytes = 0;
    };

    /// The descriptors must outlive it. Their own positions are neither used nor moved.
    RangeMover(int source, int destination) : m_source(source), m_destination(destination) {}

    /// Notes a range; one that goes on where the one before ends becomes a part of it.
    void add(const Range& range);

    /// How many bytes further on still the first range would have to go for whole blocks to become whole
    /// blocks, which file systems copy faster or share.
    std::int64_t bytesToAlignment(std::int64_t shiftBytes) const;

    /// Copies all that was noted, each range to a place so many bytes further on. `progress` gets the copied
    /// fraction. Fails with InvalidSource where the source ends too early, with WriteFailed where the
    /// destination takes no more.
    Result<void> move(std::int64_t shiftBytes, const std::function<void(double)>& progress);

private:
    std::int64_t totalBytes() const;
    Result<std::int64_t> moveSome(const Range& range);
    Result<std::int64_t> moveThroughBuffer(const Range& range);

    int m_source;
    int m_destination;
    std::vector<Range> m_ranges;
    bool m_isKernelWilling = true;
    std::vector<char> m_buffer;
};

} // namespace reelsmith::media
