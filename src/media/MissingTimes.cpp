// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/MissingTimes.h"

#include <algorithm>

namespace reelsmith::media {

void MissingTimes::fillIn(AVPacket& packet) {
    if (packet.dts == AV_NOPTS_VALUE && packet.pts != AV_NOPTS_VALUE) {
        if (!m_last) {
            const std::int64_t step = std::max<std::int64_t>(1, packet.duration);
            for (int i = 1; i <= m_depth; ++i)
                m_shown.insert(packet.pts - i * step);
        }
        // So early that each is decoded before it is shown: the earliest time that is left.
        m_shown.insert(packet.pts);
        packet.dts = *m_shown.begin();
        m_shown.erase(m_shown.begin());
    }
    if (packet.dts == AV_NOPTS_VALUE)
        return;
    // Only the last one's counts, which lasts as long as the one before.
    if (packet.duration == 0 && m_last)
        packet.duration = std::max<std::int64_t>(0, packet.dts - *m_last);
    m_last = packet.dts;
}

} // namespace reelsmith::media
