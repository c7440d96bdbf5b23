// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/AudioEncoder.h"
#include "media/AudioMixer.h"
#include "media/BoundedQueue.h"
#include "media/Decoder.h"
#include "media/ExportContext.h"
#include "media/ExportPlan.h"
#include "media/SoundPlacer.h"
#include "media/Source.h"
#include "media/Stage.h"
#include "media/TrackSink.h"

#include <memory>

namespace reelsmith::media {

/// Decodes a sound track, folds it to stereo or mono and encodes it, on one thread. Sound that fails on the
/// way is warned of and ends there; the picture goes on.
class AudioTranscode : public TrackSink {
public:
    /// Source and context outlive it. Fails where decoder or encoder cannot be had.
    static Result<std::unique_ptr<AudioTranscode>> make(const Source& source, const Track& track,
                                                        const AudioPlan& plan, double zeroSeconds,
                                                        ExportContext& context);
    ~AudioTranscode() override;

    void take(PacketHandle packet) override;
    void end() override;
    void wait() override;

private:
    AudioTranscode(const Track& track, const AudioPlan& plan, double zeroSeconds, ExportContext& context);

    Result<void> describe(const Track& track);
    Result<void> run();
    Result<void> transcode(const AVPacket* packet);
    Result<void> mix(const AVFrame& sound);
    Result<void> write(PacketHandle packet);

    ExportContext& m_context;
    int m_outputTrack = 0;
    std::unique_ptr<Decoder> m_decoder;
    SoundPlacer m_placer;
    AudioMixer m_mixer;
    std::unique_ptr<AudioEncoder> m_encoder;
    BoundedQueue<PacketHandle> m_packets;
    Stage m_stage;
};

} // namespace reelsmith::media
