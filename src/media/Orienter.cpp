// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Orienter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace reelsmith::media {

namespace {

constexpr int block = 8;
constexpr int tile = 64; // of blocks that share cache lines

template<typename Pixel>
struct Plane {
    Pixel* pixels;
    std::ptrdiff_t stride; ///< in pixels
    int width;
    int height;

    Pixel* row(int y) const { return pixels + y * stride; }
};

/// The rectangle of source pixels from (left, top) up to, not including, (right, bottom).
struct Area {
    int left, top, right, bottom;
};

/// Takes pixels of a source plane to their places in a target plane.
template<typename Pixel>
class Mover {
public:
    Mover(const Plane<const Pixel>& source, const Plane<Pixel>& target, Orientation orientation)
        : m_source(source), m_target(target) {
        const auto [a, b, c, d] = transformOf(orientation);
        m_stepRight = static_cast<std::ptrdiff_t>(a) + static_cast<std::ptrdiff_t>(b) * target.stride;
        m_stepDown = static_cast<std::ptrdiff_t>(c) + static_cast<std::ptrdiff_t>(d) * target.stride;
        m_origin =
            target.row(b < 0 || d < 0 ? target.height - 1 : 0) + (a < 0 || c < 0 ? target.width - 1 : 0);
    }

    Pixel* place(int x, int y) const { return m_origin + x * m_stepRight + y * m_stepDown; }

    void movePixels(const Area& area) const {
        for (int y = area.top; y < area.bottom; ++y) {
            Pixel* target = place(area.left, y);
            const Pixel* row = m_source.row(y);
            for (int x = area.left; x < area.right; ++x, target += m_stepRight)
                *target = row[x];
        }
    }

    void moveRows() const {
        for (int y = 0; y < m_source.height; ++y) {
            const Pixel* row = m_source.row(y);
            if (m_stepRight > 0)
                std::copy_n(row, m_source.width, place(0, y));
            else
                std::reverse_copy(row, row + m_source.width, place(m_source.width - 1, y));
        }
    }

    /// For quarter turns: rows become columns, tile by tile, so that both sides stay in the cache.
    void moveTiles() const {
        for (int top = 0; top < m_source.height; top += tile) {
            for (int left = 0; left < m_source.width; left += tile)
                moveTile({left, top, std::min(left + tile, m_source.width),
                          std::min(top + tile, m_source.height)});
        }
    }

private:
    void moveTile(const Area& area) const {
        if constexpr (sizeof(Pixel) == 1) {
            const int right = area.right - (area.right - area.left) % block;
            const int bottom = area.bottom - (area.bottom - area.top) % block;
            for (int x = area.left; x < right; x += block) {
                for (int y = area.top; y < bottom; y += block)
                    moveBlock(x, y);
            }
            movePixels({right, area.top, area.right, bottom});
            movePixels({area.left, bottom, area.right, area.bottom});
        } else {
            movePixels(area);
        }
    }

    /// Transposes 8x8 bytes in registers: swaps quarters, then quarters of quarters, then bytes.
    void moveBlock(int x, int y) const {
        std::array<std::uint64_t, block> rows;
        for (int i = 0; i < block; ++i)
            std::memcpy(&rows[static_cast<std::size_t>(i)],
                        m_source.row(m_stepDown > 0 ? y + i : y + block - 1 - i) + x, block);
        constexpr std::array<std::uint64_t, 3> masks{0x00ff00ff00ff00ff, 0x0000ffff0000ffff,
                                                     0x00000000ffffffff};
        for (std::size_t step = 0; step < masks.size(); ++step) {
            const std::size_t distance = std::size_t{1} << step;
            const unsigned shift = block << step;
            for (std::size_t i = 0; i < block; ++i) {
                if (i & distance)
                    continue;
                std::uint64_t& upper = rows[i];
                std::uint64_t& lower = rows[i + distance];
                const std::uint64_t swapped = ((upper >> shift) ^ lower) & masks[step];
                lower ^= swapped;
                upper ^= swapped << shift;
            }
        }
        const int start = m_stepDown > 0 ? y : y + block - 1;
        for (int i = 0; i < block; ++i)
            std::memcpy(place(x + i, start), &rows[static_cast<std::size_t>(i)], block);
    }

    Plane<const Pixel> m_source;
    Plane<Pixel> m_target;
    Pixel* m_origin;
    std::ptrdiff_t m_stepRight;
    std::ptrdiff_t m_stepDown;
};

template<typename Pixel>
Plane<Pixel> planeOf(const AVFrame& frame, int plane, int shift) {
    return {reinterpret_cast<Pixel*>(frame.data[plane]),
            frame.linesize[plane] / static_cast<int>(sizeof(Pixel)), AV_CEIL_RSHIFT(frame.width, shift),
            AV_CEIL_RSHIFT(frame.height, shift)};
}

/// `shift`: by how many bits the plane's sides are smaller than the picture's.
template<typename Pixel>
void orientPlane(const AVFrame& source, const AVFrame& target, int plane, int shift,
                 Orientation orientation) {
    const Mover<Pixel> mover(planeOf<const Pixel>(source, plane, shift), planeOf<Pixel>(target, plane, shift),
                             orientation);
    if (swapsSides(orientation))
        mover.moveTiles();
    else
        mover.moveRows();
}

bool isPlanar8Bit(const AVPixFmtDescriptor& format) {
    const AVComponentDescriptor& last = format.comp[format.nb_components - 1];
    return format.comp[0].depth == 8 && format.comp[0].step == 1 && last.step == 1 &&
           format.log2_chroma_w == format.log2_chroma_h;
}

} // namespace

Result<FrameHandle> orient(FrameHandle frame, Orientation orientation) {
    if (orientation == Orientation::Identity)
        return frame;
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame->format));
    const bool isPacked = frame->format == AV_PIX_FMT_RGBA;
    if (!format || (!isPacked && !isPlanar8Bit(*format)))
        return failure(ErrorCode::Unsupported, "Pictures of this format cannot be turned");
    FrameHandle result = makeFrame();
    result->format = frame->format;
    result->width = swapsSides(orientation) ? frame->height : frame->width;
    result->height = swapsSides(orientation) ? frame->width : frame->height;
    int error = av_frame_get_buffer(result.get(), 64);
    if (error >= 0)
        error = av_frame_copy_props(result.get(), frame.get());
    if (error < 0)
        return ffmpegFailure(ErrorCode::Internal, "A picture cannot be turned", error);
    av_frame_remove_side_data(result.get(), AV_FRAME_DATA_DISPLAYMATRIX);
    if (swapsSides(orientation))
        std::swap(result->sample_aspect_ratio.num, result->sample_aspect_ratio.den);
    if (isPacked) {
        orientPlane<std::uint32_t>(*frame, *result, 0, 0, orientation);
        return result;
    }
    for (int plane = 0; plane < av_pix_fmt_count_planes(static_cast<AVPixelFormat>(frame->format)); ++plane) {
        const bool isChroma = plane == 1 || plane == 2;
        orientPlane<std::uint8_t>(*frame, *result, plane, isChroma ? format->log2_chroma_w : 0, orientation);
    }
    return result;
}

} // namespace reelsmith::media
