// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PlanarScaler.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <zimg.h>

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/mem.h>
#include <libavutil/pixdesc.h>
}

namespace reelsmith::media {

namespace {

/// What zimg asks of rows and planes where it uses the widest registers.
constexpr int alignment = 64;

const AVPixFmtDescriptor* describe(AVPixelFormat format) {
    return av_pix_fmt_desc_get(format);
}

bool isRgb(AVPixelFormat format) {
    return (describe(format)->flags & AV_PIX_FMT_FLAG_RGB) != 0;
}

/// FFmpeg keeps planar RGB as G, B, R.
std::array<int, 3> planeOrder(AVPixelFormat format) {
    return isRgb(format) ? std::array{2, 0, 1} : std::array{0, 1, 2};
}

int planeCount(AVPixelFormat format) {
    return std::min<int>(3, describe(format)->nb_components);
}

/// Rounds up to what the chroma spacing divides: an odd picture is continued by its last row and column.
int roundUp(int length, int shift) {
    const int unit = 1 << shift;
    return (length + unit - 1) / unit * unit;
}

zimg_chroma_location_e chromaLocation(AVChromaLocation location) {
    switch (location) {
    case AVCHROMA_LOC_CENTER:
        return ZIMG_CHROMA_CENTER;
    case AVCHROMA_LOC_TOPLEFT:
        return ZIMG_CHROMA_TOP_LEFT;
    case AVCHROMA_LOC_TOP:
        return ZIMG_CHROMA_TOP;
    case AVCHROMA_LOC_BOTTOMLEFT:
        return ZIMG_CHROMA_BOTTOM_LEFT;
    case AVCHROMA_LOC_BOTTOM:
        return ZIMG_CHROMA_BOTTOM;
    default:
        return ZIMG_CHROMA_LEFT;
    }
}

zimg_image_format imageFormat(const PlanarScaler::Picture& picture) {
    const AVPixFmtDescriptor* format = describe(picture.format);
    zimg_image_format image;
    zimg_image_format_default(&image, ZIMG_API_VERSION);
    image.width = static_cast<unsigned>(roundUp(picture.width, format->log2_chroma_w));
    image.height = static_cast<unsigned>(roundUp(picture.height, format->log2_chroma_h));
    image.active_region.width = picture.width;
    image.active_region.height = picture.height;
    image.pixel_type = format->comp[0].depth > 8 ? ZIMG_PIXEL_WORD : ZIMG_PIXEL_BYTE;
    image.depth = static_cast<unsigned>(format->comp[0].depth);
    image.subsample_w = format->log2_chroma_w;
    image.subsample_h = format->log2_chroma_h;
    image.color_family = isRgb(picture.format)       ? ZIMG_COLOR_RGB
                         : format->nb_components < 3 ? ZIMG_COLOR_GREY
                                                     : ZIMG_COLOR_YUV;
    image.matrix_coefficients = static_cast<zimg_matrix_coefficients_e>(picture.colour.matrix);
    image.transfer_characteristics = static_cast<zimg_transfer_characteristics_e>(picture.colour.transfer);
    image.color_primaries = static_cast<zimg_color_primaries_e>(picture.colour.primaries);
    image.pixel_range = picture.colour.range == AVCOL_RANGE_JPEG ? ZIMG_RANGE_FULL : ZIMG_RANGE_LIMITED;
    image.chroma_location = chromaLocation(picture.chroma);
    return image;
}

bool isAligned(const AVFrame& frame, int planes) {
    for (int i = 0; i < planes; ++i) {
        if (reinterpret_cast<std::uintptr_t>(frame.data[i]) % alignment || frame.linesize[i] % alignment)
            return false;
    }
    return true;
}

/// Continues a plane of the given size into the columns and rows that `copy` has beyond it.
void continueEdges(std::uint8_t* plane, int stride, int bytesPerSample, int width, int height, int fullWidth,
                   int fullHeight) {
    for (int y = 0; y < height; ++y) {
        std::uint8_t* row = plane + std::ptrdiff_t{y} * stride;
        for (int x = width; x < fullWidth; ++x)
            std::memcpy(row + x * bytesPerSample, row + (width - 1) * bytesPerSample,
                        static_cast<std::size_t>(bytesPerSample));
    }
    for (int y = height; y < fullHeight; ++y)
        std::memcpy(plane + std::ptrdiff_t{y} * stride, plane + std::ptrdiff_t{height - 1} * stride,
                    static_cast<std::size_t>(fullWidth * bytesPerSample));
}

/// The same picture where zimg can read it: aligned, and of a size that the chroma spacing divides.
Result<FrameHandle> alignedCopy(const AVFrame& frame) {
    const auto format = static_cast<AVPixelFormat>(frame.format);
    const AVPixFmtDescriptor* description = describe(format);
    FrameHandle copy = makeFrame();
    copy->format = frame.format;
    copy->width = roundUp(frame.width, description->log2_chroma_w);
    copy->height = roundUp(frame.height, description->log2_chroma_h);
    if (av_frame_get_buffer(copy.get(), alignment) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    av_image_copy(copy->data, copy->linesize, const_cast<const std::uint8_t**>(frame.data), frame.linesize,
                  format, frame.width, frame.height);
    const int bytesPerSample = description->comp[0].depth > 8 ? 2 : 1;
    for (int i = 0; i < planeCount(format); ++i) {
        const bool isChroma = i > 0 && !isRgb(format);
        const int shiftX = isChroma ? description->log2_chroma_w : 0;
        const int shiftY = isChroma ? description->log2_chroma_h : 0;
        continueEdges(copy->data[i], copy->linesize[i], bytesPerSample, AV_CEIL_RSHIFT(frame.width, shiftX),
                      AV_CEIL_RSHIFT(frame.height, shiftY), copy->width >> shiftX, copy->height >> shiftY);
    }
    return copy;
}

/// Lanczos keeps most of the picture; where it shrinks to less than half its many taps cost more than they
/// show. Chroma, which shows less, gets a cheaper filter.
void chooseFilters(zimg_graph_builder_params& parameters, int sourceHeight, int resultHeight) {
    const bool isFarReduced = sourceHeight > 2 * resultHeight;
    parameters.resample_filter = isFarReduced ? ZIMG_RESIZE_BICUBIC : ZIMG_RESIZE_LANCZOS;
    parameters.filter_param_a = isFarReduced ? 0 : 3;
    parameters.filter_param_b = 0.6;
    parameters.resample_filter_uv = ZIMG_RESIZE_BICUBIC;
    parameters.filter_param_a_uv = 0;
    parameters.filter_param_b_uv = 0.6;
}

std::string lastProblem() {
    std::array<char, 512> text{};
    zimg_get_last_error(text.data(), text.size());
    zimg_clear_last_error();
    return text.data();
}

} // namespace

void PlanarScaler::GraphDeleter::operator()(zimg_filter_graph* graph) const {
    zimg_filter_graph_free(graph);
}

void PlanarScaler::AlignedDeleter::operator()(void* memory) const {
    av_free(memory);
}

bool PlanarScaler::accepts(AVPixelFormat format) {
    const AVPixFmtDescriptor* description = describe(format);
    constexpr std::uint64_t strange = AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BITSTREAM |
                                      AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_BAYER |
                                      AV_PIX_FMT_FLAG_FLOAT | AV_PIX_FMT_FLAG_BE;
    if (!description || (description->flags & strange) || description->log2_chroma_w > 2 ||
        description->log2_chroma_h > 2 || description->nb_components == 2)
        return false;
    for (int i = 0; i < std::min<int>(3, description->nb_components); ++i) {
        const AVComponentDescriptor& component = description->comp[i];
        const int bytes = component.depth > 8 ? 2 : 1;
        const int plane = isRgb(format) ? planeOrder(format)[static_cast<std::size_t>(i)] : i;
        if (component.depth < 8 || component.depth > 16 || component.step != bytes || component.shift != 0 ||
            component.offset != 0 || component.plane != plane)
            return false;
    }
    return true;
}

Result<std::unique_ptr<PlanarScaler>> PlanarScaler::make(const Picture& source, const Picture& result) {
    std::unique_ptr<PlanarScaler> scaler(new PlanarScaler(source, result));
    zimg_image_format from = imageFormat(source);
    const zimg_image_format to = imageFormat(result);
    if (from.color_family == ZIMG_COLOR_GREY)
        from.matrix_coefficients = to.matrix_coefficients;
    zimg_graph_builder_params parameters;
    zimg_graph_builder_params_default(&parameters, ZIMG_API_VERSION);
    chooseFilters(parameters, source.height, result.height);
    parameters.dither_type = from.depth > to.depth ? ZIMG_DITHER_ORDERED : ZIMG_DITHER_NONE;
    parameters.cpu_type = ZIMG_CPU_AUTO_64B;
    scaler->m_graph.reset(zimg_filter_graph_build(&from, &to, &parameters));
    if (!scaler->m_graph)
        return failure(ErrorCode::Unsupported, "Scaling: " + lastProblem());
    std::size_t scratchBytes = 0;
    zimg_filter_graph_get_tmp_size(scaler->m_graph.get(), &scratchBytes);
    scaler->m_scratch.reset(av_malloc(std::max<std::size_t>(scratchBytes, alignment)));
    if (!scaler->m_scratch)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    return scaler;
}

Result<FrameHandle> PlanarScaler::scale(const AVFrame& frame) {
    const AVPixFmtDescriptor* format = describe(m_source.format);
    FrameHandle copy;
    const AVFrame* input = &frame;
    const bool isDivided = roundUp(frame.width, format->log2_chroma_w) == frame.width &&
                           roundUp(frame.height, format->log2_chroma_h) == frame.height;
    if (!isDivided || !isAligned(frame, planeCount(m_source.format))) {
        auto aligned = alignedCopy(frame);
        if (!aligned)
            return aligned;
        copy = std::move(*aligned);
        input = copy.get();
    }
    auto made = m_pool.frame(m_result.format, m_result.width, m_result.height);
    if (!made)
        return made;
    FrameHandle output = std::move(*made);

    zimg_image_buffer_const from{};
    from.version = ZIMG_API_VERSION;
    const auto fromOrder = planeOrder(m_source.format);
    for (int i = 0; i < planeCount(m_source.format); ++i) {
        const int plane = fromOrder[static_cast<std::size_t>(i)];
        from.plane[i] = {input->data[plane], input->linesize[plane], ZIMG_BUFFER_MAX};
    }
    zimg_image_buffer to{};
    to.version = ZIMG_API_VERSION;
    for (int i = 0; i < planeCount(m_result.format); ++i)
        to.plane[i] = {output->data[i], output->linesize[i], ZIMG_BUFFER_MAX};
    if (zimg_filter_graph_process(m_graph.get(), &from, &to, m_scratch.get(), nullptr, nullptr, nullptr,
                                  nullptr))
        return failure(ErrorCode::Internal, "Scaling: " + lastProblem());
    return output;
}

} // namespace reelsmith::media
