// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/Handles.h"

#include <functional>

namespace reelsmith::media {

/// Makes whole pictures of interlaced ones, one for each frame, from the first frame on that is flagged as
/// interlaced; before it, and for pictures not so flagged, frames pass unchanged. One thread.
class Deinterlacer {
public:
    explicit Deinterlacer(AVRational timeBase) : m_timeBase(timeBase) {}

    /// Takes a frame whose pts counts in the time base and hands on those that are ready, pts in the same.
    /// A null frame asks for what is still inside.
    Result<void> process(FrameHandle frame, const std::function<bool(FrameHandle)>& take);

private:
    Result<void> build(const AVFrame& frame);
    Result<void> drain(const std::function<bool(FrameHandle)>& take);
    bool matches(const AVFrame& frame) const;

    AVRational m_timeBase;
    FilterGraphHandle m_graph;
    AVFilterContext* m_input = nullptr;
    AVFilterContext* m_output = nullptr;
    int m_width = 0;
    int m_height = 0;
    int m_format = -1;
};

} // namespace reelsmith::media
