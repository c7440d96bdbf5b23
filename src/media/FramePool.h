// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/Handles.h"

#include <memory>

extern "C" {
#include <libavutil/pixfmt.h>
}

namespace reelsmith::media {

/// Frames of one shape whose memory is used again once nobody holds them: getting fresh pages for every
/// picture costs more than scaling it. Frames may be released on any thread, and after the pool is gone.
class FramePool {
public:
    /// A frame with room for a picture, rows and planes aligned to 64 bytes. Another shape than last time
    /// makes the pool begin anew.
    Result<FrameHandle> frame(AVPixelFormat format, int width, int height);

private:
    struct PoolDeleter {
        void operator()(AVBufferPool* pool) const { av_buffer_pool_uninit(&pool); }
    };

    std::unique_ptr<AVBufferPool, PoolDeleter> m_pool;
    AVPixelFormat m_format = AV_PIX_FMT_NONE;
    int m_width = 0;
    int m_height = 0;
};

} // namespace reelsmith::media
