// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ToneMapper.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

extern "C" {
#include <libavutil/csp.h>
}

namespace reelsmith::media {

namespace {

// Signals are handled with 14 bits, so that sums of them fit 16 and eight go into a register.
constexpr int signalBits = 14;
constexpr int signalMaximum = (1 << signalBits) - 1;
constexpr int cellBits = 9;
static_assert(ToneTable::cells << cellBits == 1 << signalBits);
constexpr int weightBits = 8;
constexpr int resultBits = ToneTable::fractionBits + weightBits;
constexpr std::uint64_t fieldMask = (std::uint64_t{1} << ToneTable::fieldBits) - 1;

/// From a node to the next along each axis, by the number that stands for the axis below.
constexpr std::array<std::uint32_t, 3> steps{ToneTable::redStep, ToneTable::greenStep, ToneTable::blueStep};

std::int16_t to16Bits(int value) {
    return static_cast<std::int16_t>(value);
}

/// Value times factor in 2^-16: what vector units do with pairs of 16-bit values.
std::int16_t product(std::int16_t value, std::int16_t factor) {
    return to16Bits(value * factor >> 16);
}

std::uint16_t clamped(std::int16_t signal) {
    return static_cast<std::uint16_t>(std::clamp<std::int16_t>(signal, 0, signalMaximum));
}

/// How far into its cell a signal is, in 256ths, and in the lowest two bits along which axis.
std::uint16_t advance(std::uint16_t signal, int axis) {
    constexpr int weightMask = (1 << weightBits) - 1;
    return static_cast<std::uint16_t>((signal >> (cellBits - weightBits) & weightMask) << 2 | axis);
}

std::uint8_t luma(std::uint64_t sum) {
    return static_cast<std::uint8_t>(((sum & fieldMask) + (1U << (resultBits - 1))) >> resultBits);
}

/// The mean of a block of four, of the field that begins at `shift`.
std::uint8_t chroma(const std::array<std::uint64_t, 4>& block, int shift) {
    std::uint64_t sum = 1U << (resultBits + 1);
    for (const std::uint64_t value : block)
        sum += value >> shift & fieldMask;
    return static_cast<std::uint8_t>(sum >> (resultBits + 2));
}

/// A stretch of a picture's row on its way through the table.
class Stretch {
public:
    static constexpr int capacity = 128;

    Stretch(const AVFrame& picture, int x, int y) {
        for (std::size_t plane = 0; plane < 3; ++plane)
            m_planes[plane] =
                reinterpret_cast<const std::uint16_t*>(picture.data[plane] + static_cast<std::ptrdiff_t>(y) *
                                                                                 picture.linesize[plane]) +
                x;
    }

    /// Finds the cells of the table in which the first `count` pixels lie.
    void locate(const ToneMapper::Decoding decoding, int count, int shift) {
        for (int i = 0; i < count; ++i) {
            const auto value = [shift, i](const std::uint16_t* plane) {
                return static_cast<std::uint16_t>(plane[i] << shift);
            };
            const std::int16_t y =
                product(to16Bits(value(m_planes[0]) / 2 - decoding.black), decoding.fromLuma);
            const std::int16_t cb = to16Bits(value(m_planes[1]) ^ 0x8000);
            const std::int16_t cr = to16Bits(value(m_planes[2]) ^ 0x8000);
            const std::uint16_t red = clamped(to16Bits(y + product(cr, decoding.redFromCr)));
            const std::uint16_t green =
                clamped(to16Bits(y - product(cb, decoding.greenFromCb) - product(cr, decoding.greenFromCr)));
            const std::uint16_t blue = clamped(to16Bits(y + product(cb, decoding.blueFromCb)));

            const std::uint16_t a = advance(red, 0);
            const std::uint16_t b = advance(green, 1);
            const std::uint16_t c = advance(blue, 2);
            const auto n = static_cast<std::size_t>(i);
            m_first[n] = std::max(std::max(a, b), c);
            m_third[n] = std::min(std::min(a, b), c);
            m_second[n] = static_cast<std::uint16_t>(a + b + c - m_first[n] - m_third[n]);
            m_corner[n] = static_cast<std::uint16_t>((red >> cellBits) * ToneTable::redStep +
                                                     (green >> cellBits) * ToneTable::greenStep +
                                                     (blue >> cellBits) * ToneTable::blueStep);
        }
    }

    /// Interpolates between the four nodes of the tetrahedron around a located pixel: from the cell's lowest
    /// corner to its highest, along the axis where the colour has gone farthest first.
    std::uint64_t at(const std::uint64_t* entries, std::size_t i) const {
        const std::uint64_t* entry = entries + m_corner[i];
        const std::uint32_t first = m_first[i];
        const std::uint32_t second = m_second[i];
        const std::uint32_t third = m_third[i];
        std::uint64_t sum = entry[0] * ((1U << weightBits) - (first >> 2));
        entry += steps[first & 3];
        sum += entry[0] * ((first >> 2) - (second >> 2));
        entry += steps[second & 3];
        sum += entry[0] * ((second >> 2) - (third >> 2));
        entry += steps[third & 3];
        return sum + entry[0] * (third >> 2);
    }

private:
    using Values = std::array<std::uint16_t, capacity>;

    std::array<const std::uint16_t*, 3> m_planes;
    Values m_corner; ///< the entry of the cell's lowest corner
    Values m_first;  ///< the advances into the cell, farthest first
    Values m_second;
    Values m_third;
};

/// Maps two rows of a picture.
void mapRows(const ToneMapper::Decoding& decoding, const std::uint64_t* entries, const AVFrame& picture,
             int y, int depth, AVFrame& result) {
    std::uint8_t* upperLuma = result.data[0] + static_cast<std::ptrdiff_t>(y) * result.linesize[0];
    std::uint8_t* lowerLuma = upperLuma + result.linesize[0];
    std::uint8_t* cb = result.data[1] + static_cast<std::ptrdiff_t>(y / 2) * result.linesize[1];
    std::uint8_t* cr = result.data[2] + static_cast<std::ptrdiff_t>(y / 2) * result.linesize[2];
    for (int start = 0; start < result.width; start += Stretch::capacity) {
        const int count = std::min(Stretch::capacity, result.width - start);
        Stretch upper(picture, start, y);
        Stretch lower(picture, start, y + 1);
        upper.locate(decoding, count, 16 - depth);
        lower.locate(decoding, count, 16 - depth);
        for (int i = 0; i < count; i += 2) {
            const auto n = static_cast<std::size_t>(i);
            const std::array<std::uint64_t, 4> block{upper.at(entries, n), upper.at(entries, n + 1),
                                                     lower.at(entries, n), lower.at(entries, n + 1)};
            const int x = start + i;
            upperLuma[x] = luma(block[0]);
            upperLuma[x + 1] = luma(block[1]);
            lowerLuma[x] = luma(block[2]);
            lowerLuma[x + 1] = luma(block[3]);
            cb[x / 2] = chroma(block, ToneTable::fieldBits);
            cr[x / 2] = chroma(block, 2 * ToneTable::fieldBits);
        }
    }
}

/// Bits a sample of a format that can be mapped; 0 for others.
int depthOf444(int format) {
    switch (format) {
    case AV_PIX_FMT_YUV444P10:
        return 10;
    case AV_PIX_FMT_YUV444P12:
        return 12;
    case AV_PIX_FMT_YUV444P16:
        return 16;
    default:
        return 0;
    }
}

FrameHandle sdrFrame(int width, int height) {
    FrameHandle frame = makeFrame();
    frame->format = AV_PIX_FMT_YUV420P;
    frame->width = width;
    frame->height = height;
    frame->color_primaries = AVCOL_PRI_BT709;
    frame->color_trc = AVCOL_TRC_BT709;
    frame->colorspace = AVCOL_SPC_BT709;
    frame->color_range = AVCOL_RANGE_MPEG;
    if (av_frame_get_buffer(frame.get(), 64) < 0)
        frame.reset();
    return frame;
}

} // namespace

ToneMapper::Decoding::Decoding(const ColourTags& source) {
    const bool isFull = source.range == AVCOL_RANGE_JPEG;
    const double lumaRange = isFull ? 65535 : 219 << 8;
    const double chromaRange = isFull ? 65535 : 224 << 8;
    const AVLumaCoefficients* known = av_csp_luma_coeffs_from_avcsp(source.matrix);
    const AVLumaCoefficients& luma = known ? *known : *av_csp_luma_coeffs_from_avcsp(AVCOL_SPC_BT2020_NCL);
    const double red = av_q2d(luma.cr);
    const double green = av_q2d(luma.cg);
    const double blue = av_q2d(luma.cb);
    constexpr double white = ToneTable::whiteNode << cellBits;
    const auto factor = [](double value) {
        return static_cast<std::int16_t>(std::ceil(value * white * 65536));
    };
    black = isFull ? 0 : 16 << 7;
    fromLuma = factor(2 / lumaRange);
    redFromCr = factor((2 - 2 * red) / chromaRange);
    blueFromCb = factor((2 - 2 * blue) / chromaRange);
    greenFromCb = factor((2 - 2 * blue) * blue / green / chromaRange);
    greenFromCr = factor((2 - 2 * red) * red / green / chromaRange);
}

ToneMapper::ToneMapper(const ColourTags& source, double peakNits)
    : m_decoding(source), m_table(source, peakNits) {}

Result<FrameHandle> ToneMapper::map(const AVFrame& picture) const {
    const int depth = depthOf444(picture.format);
    if (depth == 0 || picture.width % 2 != 0 || picture.height % 2 != 0)
        return failure(ErrorCode::Unsupported, "Pictures of this kind cannot be tone-mapped");
    FrameHandle result = sdrFrame(picture.width, picture.height);
    if (!result)
        return failure(ErrorCode::OutOfMemory, "A picture cannot be held");
    for (int y = 0; y < picture.height; y += 2)
        mapRows(m_decoding, m_table.entries(), picture, y, depth, *result);
    return result;
}

} // namespace reelsmith::media
