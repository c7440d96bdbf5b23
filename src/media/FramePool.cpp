// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/FramePool.h"

extern "C" {
#include <libavutil/imgutils.h>
}

namespace reelsmith::media {

namespace {

constexpr int alignment = 64;

/// What vector code may read beyond the last row.
constexpr int margin = 64;

} // namespace

Result<FrameHandle> FramePool::frame(AVPixelFormat format, int width, int height) {
    if (!m_pool || format != m_format || width != m_width || height != m_height) {
        const int size = av_image_get_buffer_size(format, width, height, alignment);
        if (size < 0)
            return ffmpegFailure(ErrorCode::Internal, "Making room for a picture", size);
        m_pool.reset(av_buffer_pool_init(static_cast<std::size_t>(size) + margin, av_buffer_alloc));
        m_format = format;
        m_width = width;
        m_height = height;
    }
    FrameHandle frame = makeFrame();
    frame->format = format;
    frame->width = width;
    frame->height = height;
    frame->buf[0] = m_pool ? av_buffer_pool_get(m_pool.get()) : nullptr;
    if (!frame->buf[0])
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    av_image_fill_arrays(frame->data, frame->linesize, frame->buf[0]->data, format, width, height, alignment);
    frame->extended_data = frame->data;
    return frame;
}

} // namespace reelsmith::media
