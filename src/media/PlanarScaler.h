// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Colour.h"
#include "media/Error.h"
#include "media/FramePool.h"
#include "media/Handles.h"

#include <memory>

struct zimg_filter_graph;

namespace reelsmith::media {

/// Scales planar pictures, converts their sample depth, chroma spacing, range and SDR colours, in one go
/// (zimg). Built for one kind of input picture. One thread.
class PlanarScaler {
public:
    struct Picture {
        AVPixelFormat format = AV_PIX_FMT_NONE;
        int width = 0;
        int height = 0;
        ColourTags colour;
        AVChromaLocation chroma = AVCHROMA_LOC_LEFT;
        bool operator==(const Picture&) const = default;
    };

    /// Whether pictures of this format can be taken as they are: planar, in the machine's byte order.
    static bool accepts(AVPixelFormat format);

    /// Fails with Unsupported where there is no way from one to the other.
    static Result<std::unique_ptr<PlanarScaler>> make(const Picture& source, const Picture& result);

    /// A new frame with the picture of `frame`, which must be of the kind that the scaler was made for.
    Result<FrameHandle> scale(const AVFrame& frame);

private:
    struct GraphDeleter {
        void operator()(zimg_filter_graph* graph) const;
    };
    struct AlignedDeleter {
        void operator()(void* memory) const;
    };

    PlanarScaler(const Picture& source, const Picture& result) : m_source(source), m_result(result) {}

    Picture m_source;
    Picture m_result;
    std::unique_ptr<zimg_filter_graph, GraphDeleter> m_graph;
    std::unique_ptr<void, AlignedDeleter> m_scratch;
    FramePool m_pool;
};

} // namespace reelsmith::media
