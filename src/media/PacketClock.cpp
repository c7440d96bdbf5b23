// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PacketClock.h"

#include <algorithm>

namespace reelsmith::media {

namespace {

constexpr AVRational microseconds{1, 1'000'000};

/// Further ahead, or this far behind, is a jump and no pause or reordering.
constexpr std::int64_t jumpAhead = 10'000'000;
constexpr std::int64_t jumpBehind = 1'000'000;

constexpr std::int64_t unknown = INT64_MIN;

} // namespace

PacketClock::PacketClock(const AVFormatContext* context)
    : m_context(context),
      m_mayJump((context->iformat->flags & AVFMT_TS_DISCONT) != 0),
      m_last(context->nb_streams, unknown) {}

void PacketClock::mend(AVPacket& packet) {
    const auto index = static_cast<std::size_t>(packet.stream_index);
    if (!m_mayJump || packet.dts == AV_NOPTS_VALUE || index >= m_last.size())
        return;
    const AVRational timeBase = m_context->streams[index]->time_base;
    std::int64_t time = av_rescale_q(packet.dts, timeBase, microseconds) + m_shift;
    const std::int64_t last = m_last[index];
    if (last != unknown && (time > last + jumpAhead || time < last - jumpBehind)) {
        // All tracks jump together: where the others stand already says how far.
        const std::int64_t resumed =
            std::max(last, *std::max_element(m_last.begin(), m_last.end()) - jumpBehind);
        m_shift += resumed - time;
        time = resumed;
    }
    m_last[index] = time;
    const std::int64_t shift = av_rescale_q(m_shift, microseconds, timeBase);
    packet.dts += shift;
    if (packet.pts != AV_NOPTS_VALUE)
        packet.pts += shift;
}

} // namespace reelsmith::media
