// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/avfoundation/AVAudioSession.h"

namespace reelsmith {

/// The desktop's sound server, PulseAudio or what speaks like it: it is told what the sound is for, and may
/// treat it accordingly. Where there is none nothing happens. Main thread.
class SoundServer : public AVAudioSession::Server {
public:
    /// To be called before the first sound.
    Result<void> setCategory(AVAudioSessionCategory category) override;
};

} // namespace reelsmith
