// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/ExportContext.h"
#include "media/MediaInfo.h"
#include "media/Source.h"
#include "media/TrackSink.h"

#include <memory>

namespace reelsmith::media {

/// Turns a track of text subtitles into MP4's timed text, on the reading thread. A text that cannot be
/// converted is left out with a warning.
class TextConversion : public TrackSink {
public:
    /// Source and context outlive it. Fails where decoder or encoder cannot be had.
    static Result<std::unique_ptr<TextConversion>> make(const Source& source, const Track& track,
                                                        double zeroSeconds, ExportContext& context);

    void take(PacketHandle packet) override;
    void end() override {}
    void wait() override {}

private:
    TextConversion(const Track& track, double zeroSeconds, ExportContext& context)
        : m_context(context), m_timeBase(track.timeBase), m_zeroSeconds(zeroSeconds) {}

    Result<void> openCodecs(const AVStream* stream);
    Result<void> describe(const Track& track);
    Result<void> write(const AVSubtitle& text, const AVPacket& source);

    ExportContext& m_context;
    AVRational m_timeBase;
    double m_zeroSeconds;
    int m_outputTrack = 0;
    CodecHandle m_decoder;
    CodecHandle m_encoder;
};

} // namespace reelsmith::media
