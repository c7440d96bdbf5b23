// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/FrameClock.h"

#include <algorithm>
#include <cmath>

namespace reelsmith::media {

namespace {

/// Of the time between two pictures at the peak rate. Pictures that come too fast may be this much early, for
/// their times have been rounded to the source's units; those of a source that is no faster as a whole
/// jitter, as webcams' do.
double leastShareOfStep(const FrameClock::Settings& settings) {
    constexpr double slack = 1.06;
    return settings.frameRate <= slack * settings.peakRate ? 0.55 : 0.9;
}

AVRational chooseTimeBase(AVRational source) {
    constexpr int coarsest = 1'000;
    constexpr int finest = 1'000'000;
    if (source.num == 1 && source.den >= coarsest && source.den <= finest)
        return source;
    return {1, 90'000};
}

} // namespace

FrameClock::FrameClock(const Settings& settings)
    : m_settings(settings),
      m_timeBase(chooseTimeBase(settings.sourceTimeBase)),
      m_zero(std::llround(settings.zeroSeconds * m_timeBase.den)),
      m_usualDuration(std::max<std::int64_t>(1, std::llround(m_timeBase.den / settings.frameRate))),
      m_leastStep(static_cast<std::int64_t>(
          std::ceil(leastShareOfStep(settings) * m_timeBase.den / settings.peakRate))),
      m_lastDuration(std::llround(settings.lastSeconds * m_timeBase.den)) {}

std::int64_t FrameClock::timeOf(const AVFrame& frame) const {
    if (m_settings.hasTimes && frame.best_effort_timestamp != AV_NOPTS_VALUE)
        return av_rescale_q(frame.best_effort_timestamp, m_settings.sourceTimeBase, m_timeBase) - m_zero;
    return m_last == INT64_MIN ? 0 : m_end;
}

bool FrameClock::stamp(AVFrame& frame) {
    std::int64_t duration = m_usualDuration;
    const bool saysDuration = m_settings.hasTimes && frame.pkt_duration > 0;
    if (saysDuration)
        duration = std::max<std::int64_t>(
            1, av_rescale_q(frame.pkt_duration, m_settings.sourceTimeBase, m_timeBase));
    std::int64_t time = timeOf(frame);
    if (time < 0) {
        if (time + duration <= duration / 2)
            return false;
        time = 0;
    }
    if (m_last != INT64_MIN && time <= m_last)
        return false;
    m_last = time;
    m_end = time + duration;
    frame.pts = time;
    frame.pkt_duration = duration;
    return true;
}

bool FrameClock::keep(const AVFrame& frame) {
    if (m_lastKept != INT64_MIN && frame.pts - m_lastKept < m_leastStep)
        return false;
    m_lastKept = frame.pts;
    return true;
}

} // namespace reelsmith::media
