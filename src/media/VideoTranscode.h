// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/BoundedQueue.h"
#include "media/Decoder.h"
#include "media/Deinterlacer.h"
#include "media/ExportContext.h"
#include "media/ExportPlan.h"
#include "media/FrameClock.h"
#include "media/PictureConverter.h"
#include "media/Source.h"
#include "media/Stage.h"
#include "media/TrackSink.h"
#include "media/VideoEncoder.h"

#include <atomic>
#include <memory>

namespace reelsmith::media {

/// Decodes, converts and encodes the picture on three threads with short queues between them.
class VideoTranscode : public TrackSink {
public:
    /// Source and context outlive it. Fails where there is no decoder.
    static Result<std::unique_ptr<VideoTranscode>> make(const Source& source, const MediaInfo& info,
                                                        const ExportPlan& plan, ExportContext& context);
    ~VideoTranscode() override;

    void take(PacketHandle packet) override;
    void end() override;
    void wait() override;

    int outputTrack() const { return m_outputTrack; }

private:
    VideoTranscode(const Track& track, const ExportPlan& plan, const FrameClock::Settings& clock,
                   ExportContext& context);

    void start();
    Result<void> decodeAll();
    Result<void> convertAll();
    Result<void> convertOne(FrameHandle frame);
    Result<void> encodeAll();
    Result<void> openEncoder(const AVFrame& first);

    ExportContext& m_context;
    PresetRules m_rules;
    double m_frameRate;
    bool m_sparesMemory;
    double m_durationSeconds = 0;
    int m_outputTrack = 0;
    std::unique_ptr<Decoder> m_decoder;
    FrameClock m_clock;
    Deinterlacer m_deinterlacer;
    PictureConverter m_converter;
    std::unique_ptr<VideoEncoder> m_encoder;
    BoundedQueue<PacketHandle> m_packets;
    BoundedQueue<FrameHandle> m_decoded;
    BoundedQueue<FrameHandle> m_converted;
    std::atomic<std::int64_t> m_end = 0; ///< of the last picture, in the clock's units
    Stage m_decoding;
    Stage m_converting;
    Stage m_encoding;
};

} // namespace reelsmith::media
