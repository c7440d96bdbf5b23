// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Handles.h"

#include <cstdint>

namespace reelsmith::media {

/// Room that FFmpeg's MP4 writer leaves for the index in front of the media data. What the index does not
/// need becomes an empty box.
class IndexRoom {
public:
    explicit IndexRoom(std::int64_t packetCount) : m_packetCount(packetCount) {}

    /// Adds to the options with which the header of a described file is to be written.
    void open(const AVFormatContext& file, AVDictionary** options);

    /// Before the trailer: where so many packets may need more room than there is from `start` on, makes that
    /// an empty box and has the media data moved instead.
    void settle(AVFormatContext& file, std::int64_t start, std::int64_t packetCount) const;

private:
    std::int64_t m_packetCount;
    std::int64_t m_roomBytes = 0;
};

} // namespace reelsmith::media
