// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Handles.h"

#include <cstdint>

namespace reelsmith::media {

/// Puts decoded pictures on the result's clock: each at its own time, none twice, none before zero, none
/// faster than the peak rate.
class FrameClock {
public:
    struct Settings {
        AVRational sourceTimeBase{1, 90'000};
        double zeroSeconds = 0; ///< on the source's clock; becomes 0
        double frameRate = 25;  ///< expected, for pictures that do not say when or how long
        double peakRate = 30;   ///< frames a second
        bool hasTimes = true;   ///< false: pictures come evenly at frameRate, whatever they say
        double lastSeconds = 0; ///< how long the last picture is on; 0: as it says itself, or as the others
    };

    explicit FrameClock(const Settings& settings);

    /// The unit of the result's times: the source's where that is fine enough, so that no time is rounded.
    AVRational timeBase() const { return m_timeBase; }

    /// Sets the frame's pts and duration in timeBase(). False for a frame that is not to be shown.
    bool stamp(AVFrame& frame);

    /// Whether a stamped frame comes late enough after the last one kept; then it becomes that one.
    bool keep(const AVFrame& frame);

    /// When the last stamped frame, kept or not, stops being shown.
    std::int64_t end() const {
        return m_lastDuration > 0 && m_last != INT64_MIN ? m_last + m_lastDuration : m_end;
    }

private:
    std::int64_t timeOf(const AVFrame& frame) const;

    Settings m_settings;
    AVRational m_timeBase;
    std::int64_t m_zero;
    std::int64_t m_usualDuration;
    std::int64_t m_leastStep;
    std::int64_t m_lastDuration;
    std::int64_t m_last = INT64_MIN;
    std::int64_t m_lastKept = INT64_MIN;
    std::int64_t m_end = 0;
};

} // namespace reelsmith::media
