// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Handles.h"

#include <new>

namespace reelsmith::media {

FrameHandle makeFrame() {
    FrameHandle frame(av_frame_alloc());
    if (!frame)
        throw std::bad_alloc();
    return frame;
}

PacketHandle makePacket() {
    PacketHandle packet(av_packet_alloc());
    if (!packet)
        throw std::bad_alloc();
    return packet;
}

} // namespace reelsmith::media
