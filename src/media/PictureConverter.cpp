// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PictureConverter.h"

#include <algorithm>

extern "C" {
#include <libavutil/mastering_display_metadata.h>
#include <libavutil/pixdesc.h>
}

namespace reelsmith::media {

namespace {

/// The planar format nearest to one that zimg does not take.
AVPixelFormat planarFormat(AVPixelFormat format) {
    const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(format);
    const bool isDeep = description->comp[0].depth > 8;
    if (description->flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BAYER))
        return isDeep ? AV_PIX_FMT_GBRP16 : AV_PIX_FMT_GBRP;
    if (description->nb_components < 3)
        return isDeep ? AV_PIX_FMT_GRAY16 : AV_PIX_FMT_GRAY8;
    if (description->log2_chroma_w == 1 && description->log2_chroma_h == 1)
        return isDeep ? AV_PIX_FMT_YUV420P16 : AV_PIX_FMT_YUV420P;
    if (description->log2_chroma_w == 1)
        return isDeep ? AV_PIX_FMT_YUV422P16 : AV_PIX_FMT_YUV422P;
    return isDeep ? AV_PIX_FMT_YUV444P16 : AV_PIX_FMT_YUV444P;
}

/// The brightest that the source says it holds, in nits.
double peakNits(const AVFrame& frame) {
    constexpr double usual = 1000;
    if (const AVFrameSideData* data = av_frame_get_side_data(&frame, AV_FRAME_DATA_CONTENT_LIGHT_LEVEL)) {
        const auto* light = reinterpret_cast<const AVContentLightMetadata*>(data->data);
        if (light->MaxCLL > 0)
            return light->MaxCLL;
    }
    if (const AVFrameSideData* data =
            av_frame_get_side_data(&frame, AV_FRAME_DATA_MASTERING_DISPLAY_METADATA)) {
        const auto* display = reinterpret_cast<const AVMasteringDisplayMetadata*>(data->data);
        if (display->has_luminance && display->max_luminance.num > 0)
            return av_q2d(display->max_luminance);
    }
    return usual;
}

void tag(AVFrame& frame, const ColourTags& tags) {
    frame.color_primaries = tags.primaries;
    frame.color_trc = tags.transfer;
    frame.colorspace = tags.matrix;
    frame.color_range = tags.range;
    frame.chroma_location = AVCHROMA_LOC_LEFT;
    frame.sample_aspect_ratio = {1, 1};
}

/// zimg converts between transfer curves and primaries when they differ; where that is no gain, both sides
/// say the same, so that only range, matrix and size change.
void levelColours(ColourPlan& plan) {
    if (!isWideGamut(plan.source.primaries) || plan.needsToneMapping) {
        plan.source.primaries = plan.result.primaries;
        plan.source.transfer = plan.result.transfer;
    } else {
        plan.source.transfer = AVCOL_TRC_BT709;
    }
}

} // namespace

/// How pictures of one kind are converted.
struct PictureConverter::Way {
    AVPixelFormat format = AV_PIX_FMT_NONE;
    int width = 0;
    int height = 0;
    ColourPlan colour;
    AVChromaLocation chroma = AVCHROMA_LOC_UNSPECIFIED;
    std::unique_ptr<PlanarScaler> scaler; ///< none where the picture is as it should be
    std::optional<ToneMapper> toneMapper;

    bool fits(const AVFrame& frame) const {
        return frame.format == format && frame.width == width && frame.height == height &&
               frame.chroma_location == chroma && planColour(frame) == colour;
    }
};

PictureConverter::PictureConverter(int width, int height, Orientation orientation)
    : m_width(width), m_height(height), m_orientation(orientation) {}

PictureConverter::~PictureConverter() = default;

Result<FrameHandle> PictureConverter::convert(FrameHandle frame) {
    if (!PlanarScaler::accepts(static_cast<AVPixelFormat>(frame->format))) {
        auto planar = planarize(std::move(frame));
        if (!planar)
            return planar;
        frame = std::move(*planar);
    }
    if (!m_way || !m_way->fits(*frame)) {
        if (auto chosen = choose(*frame); !chosen)
            return tl::unexpected(chosen.error());
    }
    Result<FrameHandle> result = nullptr;
    if (!m_way->scaler) {
        result = std::move(frame);
    } else {
        result = m_way->scaler->scale(*frame);
        if (result && m_way->toneMapper)
            result = m_way->toneMapper->map(**result);
        if (result) {
            (*result)->pts = frame->pts;
            (*result)->pkt_duration = frame->pkt_duration;
        }
    }
    if (!result)
        return result;
    tag(**result, m_way->colour.result);
    if (m_orientation == Orientation::Identity)
        return result;
    return orient(std::move(*result), m_orientation);
}

Result<void> PictureConverter::choose(const AVFrame& frame) {
    auto way = std::make_unique<Way>();
    way->format = static_cast<AVPixelFormat>(frame.format);
    way->width = frame.width;
    way->height = frame.height;
    way->chroma = frame.chroma_location;
    way->colour = planColour(frame);
    ColourPlan colours = way->colour;
    levelColours(colours);
    const auto chroma = way->chroma == AVCHROMA_LOC_UNSPECIFIED ? AVCHROMA_LOC_LEFT : way->chroma;
    PlanarScaler::Picture from{way->format, frame.width, frame.height, colours.source, chroma};
    PlanarScaler::Picture to{AV_PIX_FMT_YUV420P, m_width, m_height, colours.result, AVCHROMA_LOC_LEFT};
    if (way->colour.needsToneMapping) {
        ColourTags mapped = way->colour.source;
        to.format = AV_PIX_FMT_YUV444P16;
        to.colour = colours.source;
        if (mapped.matrix == AVCOL_SPC_RGB || mapped.matrix == AVCOL_SPC_ICTCP) {
            // Such a matrix depends on the curve.
            to.colour = from.colour = mapped;
            to.colour.matrix = mapped.matrix = AVCOL_SPC_BT2020_NCL;
            to.colour.range = mapped.range = AVCOL_RANGE_MPEG;
        }
        way->toneMapper.emplace(mapped, peakNits(frame));
    }
    if (!(from == to)) {
        auto scaler = PlanarScaler::make(from, to);
        if (!scaler)
            return tl::unexpected(scaler.error());
        way->scaler = std::move(*scaler);
    }
    m_way = std::move(way);
    return {};
}

Result<FrameHandle> PictureConverter::planarize(FrameHandle frame) const {
    const auto format = static_cast<AVPixelFormat>(frame->format);
    const AVPixelFormat target = planarFormat(format);
    FrameHandle planar = makeFrame();
    planar->format = target;
    planar->width = frame->width;
    planar->height = frame->height;
    if (av_frame_get_buffer(planar.get(), 64) < 0 || av_frame_copy_props(planar.get(), frame.get()) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    const ScalerHandle scaler(sws_getContext(frame->width, frame->height, format, frame->width, frame->height,
                                             target, SWS_BICUBIC | SWS_ACCURATE_RND, nullptr, nullptr,
                                             nullptr));
    if (!scaler)
        return failure(ErrorCode::Unsupported, std::string("Pictures of the format ") +
                                                   av_get_pix_fmt_name(format) + " cannot be converted");
    sws_scale(scaler.get(), frame->data, frame->linesize, 0, frame->height, planar->data, planar->linesize);
    return planar;
}

} // namespace reelsmith::media
