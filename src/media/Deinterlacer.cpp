// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Deinterlacer.h"

#include <string>

extern "C" {
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

namespace reelsmith::media {

bool Deinterlacer::matches(const AVFrame& frame) const {
    return frame.width == m_width && frame.height == m_height && frame.format == m_format;
}

Result<void> Deinterlacer::process(FrameHandle frame, const std::function<bool(FrameHandle)>& take) {
    const bool hasChanged = m_graph && frame && !matches(*frame);
    if (m_graph && (!frame || hasChanged)) {
        if (av_buffersrc_add_frame(m_input, nullptr) >= 0) {
            if (auto drained = drain(take); !drained)
                return drained;
        }
        m_graph.reset();
    }
    if (!frame)
        return {};
    if (!m_graph && !frame->interlaced_frame) {
        take(std::move(frame));
        return {};
    }
    if (!m_graph) {
        if (auto built = build(*frame); !built)
            return built;
    }
    if (const int result = av_buffersrc_add_frame(m_input, frame.get()); result < 0)
        return ffmpegFailure(ErrorCode::Internal, "Deinterlacing", result);
    return drain(take);
}

Result<void> Deinterlacer::build(const AVFrame& frame) {
    m_graph.reset(avfilter_graph_alloc());
    if (!m_graph)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    m_graph->nb_threads = 1;
    m_width = frame.width;
    m_height = frame.height;
    m_format = frame.format;
    const std::string input = "video_size=" + std::to_string(frame.width) + "x" +
                              std::to_string(frame.height) + ":pix_fmt=" + std::to_string(frame.format) +
                              ":time_base=" + std::to_string(m_timeBase.num) + "/" +
                              std::to_string(m_timeBase.den);
    AVFilterContext* filter = nullptr;
    const auto add = [this](AVFilterContext** made, const char* kind, const char* arguments) {
        return avfilter_graph_create_filter(made, avfilter_get_by_name(kind), kind, arguments, nullptr,
                                            m_graph.get());
    };
    int result = add(&m_input, "buffer", input.c_str());
    if (result >= 0)
        result = add(&filter, "yadif", "mode=send_frame:deint=interlaced");
    if (result >= 0)
        result = add(&m_output, "buffersink", nullptr);
    if (result >= 0)
        result = avfilter_link(m_input, 0, filter, 0);
    if (result >= 0)
        result = avfilter_link(filter, 0, m_output, 0);
    if (result >= 0)
        result = avfilter_graph_config(m_graph.get(), nullptr);
    if (result < 0)
        return ffmpegFailure(ErrorCode::Internal, "Setting up deinterlacing", result);
    return {};
}

Result<void> Deinterlacer::drain(const std::function<bool(FrameHandle)>& take) {
    for (;;) {
        FrameHandle frame = makeFrame();
        const int result = av_buffersink_get_frame(m_output, frame.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return {};
        if (result < 0)
            return ffmpegFailure(ErrorCode::Internal, "Deinterlacing", result);
        const AVRational timeBase = av_buffersink_get_time_base(m_output);
        if (frame->pts != AV_NOPTS_VALUE)
            frame->pts = av_rescale_q(frame->pts, timeBase, m_timeBase);
        if (!take(std::move(frame)))
            return {};
    }
}

} // namespace reelsmith::media
