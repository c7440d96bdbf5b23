// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/ExportContext.h"
#include "media/MediaInfo.h"
#include "media/Source.h"
#include "media/TrackSink.h"

#include <memory>

namespace reelsmith::media {

/// Brings a track's packets over as they are, on the reading thread.
class TrackCopy : public TrackSink {
public:
    /// Source and context outlive it. Fails where the track's headers cannot be written into MP4.
    static Result<std::unique_ptr<TrackCopy>> make(const Source& source, const Track& track,
                                                   double zeroSeconds, ExportContext& context);

    void take(PacketHandle packet) override;
    void end() override;
    void wait() override {}

    int outputTrack() const { return m_outputTrack; }

private:
    TrackCopy(const Track& track, double zeroSeconds, ExportContext& context);

    Result<void> openFilter(const AVStream* stream);
    Result<void> describe(const AVStream* stream, const Track& track);
    Result<void> pass(AVPacket* packet);

    ExportContext& m_context;
    AVRational m_timeBase;
    std::int64_t m_zero;
    bool m_isVideo;
    bool m_hasKeyFrame = false;
    bool m_lacksParameters = false; ///< of its pictures: they come among the packets, and have not yet
    long m_damagedCount = 0;        ///< packets that the filter refused
    int m_outputTrack = 0;
    BitstreamFilterHandle m_filter; ///< null where packets need none
};

} // namespace reelsmith::media
