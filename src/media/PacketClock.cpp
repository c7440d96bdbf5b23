// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/PacketClock.h"

#include "media/Source.h"

#include <algorithm>
#include <cstdlib>

namespace reelsmith::media {

namespace {

constexpr AVRational microseconds{1, 1'000'000};

/// Further ahead of all tracks, or so far behind the track's own last packet, is a jump and no pause or
/// reordering.
constexpr std::int64_t jumpAhead = 10'000'000;
constexpr std::int64_t jumpBehind = 1'000'000;
/// A screen that is recorded live may stand still for long.
constexpr std::int64_t liveJumpAhead = 3'600'000'000;

bool isLive(const AVFormatContext* context) {
    return isNamed(context, "flv");
}

} // namespace

PacketClock::PacketClock(const AVFormatContext* context)
    : m_context(context),
      m_mayJump((context->iformat->flags & AVFMT_TS_DISCONT) != 0 || isLive(context)),
      m_jumpAhead(isLive(context) ? liveJumpAhead : jumpAhead),
      m_tracks(context->nb_streams) {}

void PacketClock::mend(AVPacket& packet) {
    const auto index = static_cast<std::size_t>(packet.stream_index);
    if (!m_mayJump || packet.dts == AV_NOPTS_VALUE || index >= m_tracks.size())
        return;
    const AVRational timeBase = m_context->streams[index]->time_base;
    std::int64_t time = av_rescale_q(packet.dts, timeBase, microseconds) + m_shift;
    Track& track = m_tracks[index];
    // A track may begin late, but not far from where the others stand in the file.
    const bool beginsElsewhere =
        !track.hasBegun && m_newest != INT64_MIN && std::abs(time - m_newest) > m_jumpAhead;
    if (beginsElsewhere ||
        (track.hasBegun && (time > m_newest + m_jumpAhead || time < track.last - jumpBehind))) {
        // All tracks jump together: where the others stand already says how far.
        const std::int64_t resumed =
            track.hasBegun ? std::max(track.last + track.step, m_newest - jumpBehind) : m_newest;
        m_shift += resumed - time;
        time = resumed;
    } else if (track.hasBegun) {
        track.step = std::max<std::int64_t>(0, time - track.last);
    }
    track.hasBegun = true;
    track.last = time;
    m_newest = std::max(m_newest, time);
    const std::int64_t shift = av_rescale_q(m_shift, microseconds, timeBase);
    packet.dts += shift;
    if (packet.pts != AV_NOPTS_VALUE)
        packet.pts += shift;
}

} // namespace reelsmith::media
