// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/SoundPlacer.h"

#include <algorithm>
#include <cmath>

extern "C" {
#include <libavutil/samplefmt.h>
}

namespace reelsmith::media {

namespace {

/// Containers round times; only more than this is a gap or an overlap.
constexpr double toleranceSeconds = 0.03;

/// A longer silence is no silence but a broken clock.
constexpr double longestSilenceSeconds = 6 * 3600;

/// Drops the first samples of a frame in place.
void dropFront(AVFrame& frame, int samples) {
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const bool isPlanar = av_sample_fmt_is_planar(format) != 0;
    const int bytes =
        av_get_bytes_per_sample(format) * (isPlanar ? 1 : frame.ch_layout.nb_channels) * samples;
    const int planes = isPlanar ? frame.ch_layout.nb_channels : 1;
    for (int i = 0; i < planes; ++i)
        frame.extended_data[i] += bytes;
    if (frame.extended_data != frame.data) {
        for (int i = 0; i < std::min(planes, AV_NUM_DATA_POINTERS); ++i)
            frame.data[i] = frame.extended_data[i];
    }
    frame.nb_samples -= samples;
}

} // namespace

Result<void> SoundPlacer::place(FrameHandle frame, const Take& take) {
    if (frame->nb_samples <= 0 || frame->sample_rate <= 0)
        return {};
    const std::int64_t pts =
        frame->best_effort_timestamp != AV_NOPTS_VALUE ? frame->best_effort_timestamp : frame->pts;
    if (pts != AV_NOPTS_VALUE) {
        const double due = static_cast<double>(pts) * av_q2d(m_timeBase) - m_zeroSeconds;
        const double missing = due - m_position;
        const bool isOff = !m_hasBegun || std::abs(missing) > toleranceSeconds;
        const auto samples = std::llround(std::clamp(missing, -longestSilenceSeconds, longestSilenceSeconds) *
                                          frame->sample_rate);
        if (isOff && samples > 0 && missing < longestSilenceSeconds) {
            if (auto filled = fillSilence(*frame, samples, take); !filled)
                return filled;
        }
        if (isOff && samples < 0) {
            if (-samples >= frame->nb_samples)
                return {};
            dropFront(*frame, static_cast<int>(-samples));
        }
    }
    m_hasBegun = true;
    m_position += static_cast<double>(frame->nb_samples) / frame->sample_rate;
    return take(*frame);
}

Result<void> SoundPlacer::fillSilence(const AVFrame& like, std::int64_t samples, const Take& take) {
    constexpr std::int64_t piece = 4096;
    m_position += static_cast<double>(samples) / like.sample_rate;
    for (std::int64_t left = samples; left > 0; left -= piece) {
        FrameHandle silence = makeFrame();
        silence->format = like.format;
        silence->sample_rate = like.sample_rate;
        silence->nb_samples = static_cast<int>(std::min(left, piece));
        if (av_channel_layout_copy(&silence->ch_layout, &like.ch_layout) < 0 ||
            av_frame_get_buffer(silence.get(), 0) < 0)
            return failure(ErrorCode::OutOfMemory, "Out of memory");
        av_samples_set_silence(silence->extended_data, 0, silence->nb_samples, silence->ch_layout.nb_channels,
                               static_cast<AVSampleFormat>(silence->format));
        if (auto taken = take(*silence); !taken)
            return taken;
    }
    return {};
}

} // namespace reelsmith::media
