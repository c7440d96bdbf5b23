// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Handles.h"

namespace reelsmith::media {

/// Takes the packets of one source track and brings them, one way or another, into the result. Called by the
/// reading thread only; failures go to the export's latch.
class TrackSink {
public:
    virtual ~TrackSink() = default;

    /// May wait for earlier packets to be worked off.
    virtual void take(PacketHandle packet) = 0;

    /// No more packets: begins to finish the track.
    virtual void end() = 0;

    /// Waits until everything taken has gone to the writer.
    virtual void wait() = 0;
};

} // namespace reelsmith::media
