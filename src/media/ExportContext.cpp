// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ExportContext.h"

#include <algorithm>

namespace reelsmith::media {

void ExportContext::report(double fraction) {
    // What follows the last picture, the index and the check, is not done yet.
    constexpr double mostBeforeTheEnd = 0.99;
    const std::lock_guard lock(m_mutex);
    // That there is any is news, however long the video.
    const double leastStep = m_reported > 0 ? 0.001 : 1e-6;
    fraction = std::min(fraction, mostBeforeTheEnd);
    if (fraction < m_reported + leastStep)
        return;
    m_reported = fraction;
    m_progress(fraction);
}

void ExportContext::warn(const std::string& text) {
    const std::lock_guard lock(m_mutex);
    m_warnings += (m_warnings.empty() ? "" : "; ") + text;
}

} // namespace reelsmith::media
