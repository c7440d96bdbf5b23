// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/Handles.h"
#include "media/PresetRules.h"

#include <functional>
#include <map>
#include <memory>

namespace reelsmith::media {

/// H.264 by x264: High profile, constant quality, closed groups of at most 5 s. One thread.
class VideoEncoder {
public:
    struct Settings {
        PresetRules rules;
        AVRational timeBase{1, 90'000};
        double frameRate = 30;     ///< expected mean, for the level and the rate control
        bool sparesMemory = false; ///< for a little more size
    };

    /// `first` gives size and colours; every frame after it must have the same.
    static Result<std::unique_ptr<VideoEncoder>> open(const AVFrame& first, const Settings& settings);

    /// Takes a frame with pts and duration in the time base (null: no more) and hands on finished packets,
    /// each with its duration.
    Result<void> encode(FrameHandle frame, const std::function<Result<void>(PacketHandle)>& take);

    const AVCodecContext* context() const { return m_context.get(); }

private:
    explicit VideoEncoder(CodecHandle context) : m_context(std::move(context)) {}
    void remember(const AVFrame& frame);

    CodecHandle m_context;
    std::map<std::int64_t, std::int64_t> m_durations; ///< by pts, of frames that are still inside
};

} // namespace reelsmith::media
