// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Colour.h"

#include <cstring>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace reelsmith::media {

namespace {

constexpr ColourTags hd{};
constexpr ColourTags ntsc{AVCOL_PRI_SMPTE170M, AVCOL_TRC_SMPTE170M, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG};
constexpr ColourTags pal{AVCOL_PRI_BT470BG, AVCOL_TRC_SMPTE170M, AVCOL_SPC_BT470BG, AVCOL_RANGE_MPEG};

/// What players assume of a picture of this size that says nothing.
ColourTags assumedTags(int width, int height) {
    if (width >= 1280 || height > 576)
        return hd;
    return height == 576 || height == 288 ? pal : ntsc;
}

bool isRgb(const AVFrame& frame) {
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    return format && (format->flags & AV_PIX_FMT_FLAG_RGB);
}

bool isFullRange(const AVFrame& frame) {
    switch (frame.format) {
    case AV_PIX_FMT_YUVJ420P:
    case AV_PIX_FMT_YUVJ422P:
    case AV_PIX_FMT_YUVJ444P:
    case AV_PIX_FMT_YUVJ440P:
    case AV_PIX_FMT_YUVJ411P:
        return true;
    default:
        return frame.color_range == AVCOL_RANGE_JPEG || isRgb(frame);
    }
}

bool isStandardDefinition(AVColorSpace matrix) {
    return matrix == AVCOL_SPC_SMPTE170M || matrix == AVCOL_SPC_BT470BG;
}

/// Some files name a matrix that their pictures cannot have.
bool isMatrixOf(const AVFrame& frame) {
    switch (frame.colorspace) {
    case AVCOL_SPC_UNSPECIFIED:
    case AVCOL_SPC_RESERVED:
    case AVCOL_SPC_SMPTE2085:
    case AVCOL_SPC_RGB:
        return false;
    case AVCOL_SPC_ICTCP:
        return frame.color_trc == AVCOL_TRC_SMPTE2084 || frame.color_trc == AVCOL_TRC_ARIB_STD_B67;
    default:
        return true;
    }
}

ColourTags sourceTags(const AVFrame& frame) {
    ColourTags tags = assumedTags(frame.width, frame.height);
    const bool saysMatrix = isMatrixOf(frame);
    if (saysMatrix)
        tags = isStandardDefinition(frame.colorspace) ? (frame.colorspace == AVCOL_SPC_BT470BG ? pal : ntsc)
                                                      : hd;
    if (saysMatrix)
        tags.matrix = frame.colorspace;
    if (isRgb(frame))
        tags.matrix = AVCOL_SPC_RGB;
    if (frame.color_primaries != AVCOL_PRI_UNSPECIFIED && frame.color_primaries != AVCOL_PRI_RESERVED0 &&
        frame.color_primaries != AVCOL_PRI_RESERVED)
        tags.primaries = frame.color_primaries;
    if (frame.color_trc != AVCOL_TRC_UNSPECIFIED && frame.color_trc != AVCOL_TRC_RESERVED0 &&
        frame.color_trc != AVCOL_TRC_RESERVED)
        tags.transfer = frame.color_trc;
    tags.range = isFullRange(frame) ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    return tags;
}

template<typename Property>
void dropUnnamed(Property& property, int count, Property unspecified) {
    int number = 0;
    static_assert(sizeof property == sizeof number);
    std::memcpy(&number, &property, sizeof number);
    if (number < 0 || number >= count)
        property = unspecified;
}

void dropUnnamed(AVColorRange& range, AVColorPrimaries& primaries, AVColorTransferCharacteristic& transfer,
                 AVColorSpace& matrix, AVChromaLocation& chroma) {
    dropUnnamed(range, AVCOL_RANGE_NB, AVCOL_RANGE_UNSPECIFIED);
    dropUnnamed(primaries, AVCOL_PRI_NB, AVCOL_PRI_UNSPECIFIED);
    dropUnnamed(transfer, AVCOL_TRC_NB, AVCOL_TRC_UNSPECIFIED);
    dropUnnamed(matrix, AVCOL_SPC_NB, AVCOL_SPC_UNSPECIFIED);
    dropUnnamed(chroma, AVCHROMA_LOC_NB, AVCHROMA_LOC_UNSPECIFIED);
}

void fillIn(const ColourTags& told, AVColorRange& range, AVColorPrimaries& primaries,
            AVColorTransferCharacteristic& transfer, AVColorSpace& matrix) {
    if (range == AVCOL_RANGE_UNSPECIFIED)
        range = told.range;
    if (primaries == AVCOL_PRI_UNSPECIFIED)
        primaries = told.primaries;
    if (transfer == AVCOL_TRC_UNSPECIFIED)
        transfer = told.transfer;
    if (matrix == AVCOL_SPC_UNSPECIFIED)
        matrix = told.matrix;
}

} // namespace

bool isWideGamut(AVColorPrimaries primaries) {
    return primaries == AVCOL_PRI_BT2020 || primaries == AVCOL_PRI_SMPTE431 ||
           primaries == AVCOL_PRI_SMPTE432;
}

void dropUnnamedColours(AVCodecParameters& track) {
    dropUnnamed(track.color_range, track.color_primaries, track.color_trc, track.color_space,
                track.chroma_location);
}

void dropUnnamedColours(AVFrame& frame) {
    dropUnnamed(frame.color_range, frame.color_primaries, frame.color_trc, frame.colorspace,
                frame.chroma_location);
}

ColourTags coloursOf(const AVCodecParameters& track) {
    return {track.color_primaries, track.color_trc, track.color_space, track.color_range};
}

void fillInColours(AVCodecParameters& track, const ColourTags& told) {
    fillIn(told, track.color_range, track.color_primaries, track.color_trc, track.color_space);
}

void fillInColours(AVFrame& frame, const ColourTags& told) {
    fillIn(told, frame.color_range, frame.color_primaries, frame.color_trc, frame.colorspace);
}

ColourPlan planColour(const AVFrame& frame) {
    ColourPlan plan;
    plan.source = sourceTags(frame);
    plan.needsToneMapping =
        plan.source.transfer == AVCOL_TRC_SMPTE2084 || plan.source.transfer == AVCOL_TRC_ARIB_STD_B67;
    const bool isWide = isWideGamut(plan.source.primaries);
    if (plan.needsToneMapping && !isMatrixOf(frame) && !isRgb(frame))
        plan.source.matrix = AVCOL_SPC_BT2020_NCL;
    if (plan.needsToneMapping && frame.color_primaries == AVCOL_PRI_UNSPECIFIED)
        plan.source.primaries = AVCOL_PRI_BT2020;
    if (!plan.needsToneMapping && !isWide && isStandardDefinition(plan.source.matrix)) {
        plan.result = plan.source.matrix == AVCOL_SPC_BT470BG ? pal : ntsc;
        plan.result.primaries = plan.source.primaries;
    }
    return plan;
}

} // namespace reelsmith::media
