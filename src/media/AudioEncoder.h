// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/Handles.h"

#include <functional>
#include <memory>

extern "C" {
#include <libavutil/audio_fifo.h>
}

namespace reelsmith::media {

/// AAC-LC of one or two channels from float samples. One thread.
class AudioEncoder {
public:
    static Result<std::unique_ptr<AudioEncoder>> open(int sampleRate, int channels, int bitRate);

    /// Takes planar float samples at the encoder's rate (null: no more) and hands on finished packets, whose
    /// times count samples from the first one taken.
    Result<void> encode(const AVFrame* samples, const std::function<Result<void>(PacketHandle)>& take);

    const AVCodecContext* context() const { return m_context.get(); }

private:
    struct FifoDeleter {
        void operator()(AVAudioFifo* fifo) const { av_audio_fifo_free(fifo); }
    };

    AudioEncoder() = default;
    Result<void> encodeWaiting(int count, const std::function<Result<void>(PacketHandle)>& take);
    Result<void> send(const AVFrame* frame, const std::function<Result<void>(PacketHandle)>& take);

    CodecHandle m_context;
    std::unique_ptr<AVAudioFifo, FifoDeleter> m_fifo;
    std::int64_t m_position = 0;
};

} // namespace reelsmith::media
