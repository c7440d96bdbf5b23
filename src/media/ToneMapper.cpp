// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ToneMapper.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace reelsmith::media {

namespace {

constexpr int weightBits = 8;
constexpr int resultBits = ToneTable::fractionBits + weightBits;
constexpr std::uint64_t fieldMask = (std::uint64_t{1} << ToneTable::fieldBits) - 1;

/// Where a value lies within its cell (in 256ths, upper half) and how far the next node is in the table
/// (lower half): one number to be sorted by.
template<int cellBits>
std::uint32_t way(std::uint32_t value, std::uint32_t step) {
    return (value >> (cellBits - weightBits) & 0xff) << 16 | step;
}

/// Interpolates between the four nodes of the tetrahedron around a colour: from the cell's lowest corner to
/// its highest, along the axis where the colour has gone farthest first.
std::uint64_t interpolate(const std::uint64_t* entries, std::uint32_t y, std::uint32_t cb, std::uint32_t cr) {
    constexpr int lumaBits = ToneTable::lumaCellBits;
    constexpr int chromaBits = ToneTable::chromaCellBits;
    entries += (y >> lumaBits) * ToneTable::lumaStep + (cb >> chromaBits) * ToneTable::cbStep +
               (cr >> chromaBits) * ToneTable::crStep;
    const std::uint32_t a = way<lumaBits>(y, ToneTable::lumaStep);
    const std::uint32_t b = way<chromaBits>(cb, ToneTable::cbStep);
    const std::uint32_t c = way<chromaBits>(cr, ToneTable::crStep);
    const std::uint32_t low = std::min(a, b);
    const std::uint32_t high = std::max(a, b);
    const std::uint32_t first = std::max(high, c);
    const std::uint32_t second = std::max(low, std::min(high, c));
    const std::uint32_t third = std::min(low, c);

    std::uint64_t sum = entries[0] * ((1U << weightBits) - (first >> 16));
    entries += first & 0xffff;
    sum += entries[0] * ((first >> 16) - (second >> 16));
    entries += second & 0xffff;
    sum += entries[0] * ((second >> 16) - (third >> 16));
    entries += third & 0xffff;
    return sum + entries[0] * (third >> 16);
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

const std::uint16_t* row(const AVFrame& picture, int plane, int y) {
    return reinterpret_cast<const std::uint16_t*>(picture.data[plane] +
                                                  static_cast<std::ptrdiff_t>(y) * picture.linesize[plane]);
}

/// Maps two rows of the picture.
class RowPair {
public:
    RowPair(const std::uint64_t* entries, const AVFrame& picture, int y, int depth)
        : m_entries(entries), m_shift(16 - depth) {
        for (int plane = 0; plane < 3; ++plane) {
            m_upper[static_cast<std::size_t>(plane)] = row(picture, plane, y);
            m_lower[static_cast<std::size_t>(plane)] = row(picture, plane, y + 1);
        }
    }

    void map(AVFrame& result, int y) const {
        std::uint8_t* upper = result.data[0] + static_cast<std::ptrdiff_t>(y) * result.linesize[0];
        std::uint8_t* lower = upper + result.linesize[0];
        std::uint8_t* cb = result.data[1] + static_cast<std::ptrdiff_t>(y / 2) * result.linesize[1];
        std::uint8_t* cr = result.data[2] + static_cast<std::ptrdiff_t>(y / 2) * result.linesize[2];
        for (int x = 0; x < result.width; x += 2) {
            const std::array<std::uint64_t, 4> block{at(m_upper, x), at(m_upper, x + 1), at(m_lower, x),
                                                     at(m_lower, x + 1)};
            upper[x] = luma(block[0]);
            upper[x + 1] = luma(block[1]);
            lower[x] = luma(block[2]);
            lower[x + 1] = luma(block[3]);
            cb[x / 2] = chroma(block, ToneTable::fieldBits);
            cr[x / 2] = chroma(block, 2 * ToneTable::fieldBits);
        }
    }

private:
    using Planes = std::array<const std::uint16_t*, 3>;

    std::uint64_t at(const Planes& planes, int x) const {
        const auto value = [this, x](const std::uint16_t* samples) {
            return static_cast<std::uint32_t>(samples[x] << m_shift) & 0xffff;
        };
        return interpolate(m_entries, value(planes[0]), value(planes[1]), value(planes[2]));
    }

    const std::uint64_t* m_entries;
    Planes m_upper;
    Planes m_lower;
    int m_shift;
};

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

Result<FrameHandle> ToneMapper::map(const AVFrame& picture) const {
    const int depth = depthOf444(picture.format);
    if (depth == 0 || picture.width % 2 != 0 || picture.height % 2 != 0)
        return failure(ErrorCode::Unsupported, "Pictures of this kind cannot be tone-mapped");
    FrameHandle result = sdrFrame(picture.width, picture.height);
    if (!result)
        return failure(ErrorCode::OutOfMemory, "A picture cannot be held");
    for (int y = 0; y < picture.height; y += 2)
        RowPair(m_table.entries(), picture, y, depth).map(*result, y);
    return result;
}

} // namespace reelsmith::media
