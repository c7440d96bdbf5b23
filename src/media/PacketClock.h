// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Handles.h"

#include <cstdint>
#include <vector>

namespace reelsmith::media {

/// Mends the clock of a transport stream that jumps, where recordings were joined or a counter began anew:
/// the times of all tracks go on where they were. Leaves containers with one clock throughout alone.
class PacketClock {
public:
    explicit PacketClock(const AVFormatContext* context);

    /// Shifts the packet's times where the clock has jumped before it.
    void mend(AVPacket& packet);

private:
    const AVFormatContext* m_context;
    bool m_mayJump;
    std::int64_t m_shift = 0;         ///< microseconds
    std::vector<std::int64_t> m_last; ///< decoding time of each track's last packet, mended, in microseconds
};

} // namespace reelsmith::media
