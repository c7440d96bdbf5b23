// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Handles.h"

#include <cstdint>
#include <vector>

namespace reelsmith::media {

/// Mends the clock of a transport stream, or of a recorded live stream, that jumps, where recordings were
/// joined or a counter began anew: the times of all tracks go on where they were. Leaves containers with one
/// clock throughout alone.
class PacketClock {
public:
    explicit PacketClock(const AVFormatContext* context);

    /// Shifts the packet's times where the clock has jumped before it.
    void mend(AVPacket& packet);

private:
    /// Times are decoding times of mended packets, in microseconds.
    struct Track {
        bool hasBegun = false;
        std::int64_t last = 0;
        std::int64_t step = 0; ///< between the last two
    };

    const AVFormatContext* m_context;
    bool m_mayJump;
    std::int64_t m_jumpAhead; ///< microseconds, as these
    std::int64_t m_shift = 0;
    std::int64_t m_newest = INT64_MIN;
    std::vector<Track> m_tracks;
};

} // namespace reelsmith::media
