// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/AVAudioSession.h"

namespace reelsmith {

AVAudioSession& AVAudioSession::sharedInstance() {
    static AVAudioSession session;
    return session;
}

Result<void> AVAudioSession::setCategory(AVAudioSessionCategory category) {
    Result<void> answer = m_server->setCategory(category);
    if (answer)
        m_category = category;
    return answer;
}

Result<void> AVAudioSession::setActive(bool isActive) {
    Result<void> answer = m_server->setActive(isActive);
    if (answer)
        m_isActive = isActive;
    return answer;
}

} // namespace reelsmith
