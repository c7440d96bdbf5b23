// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/Error.h"

#include <memory>

namespace reelsmith {

enum class AVAudioSessionCategory { SoloAmbient, Playback };

/// What the sound of this application is to the rest of the device. Main thread.
class AVAudioSession {
public:
    /// The server that the sound goes to. This one knows no categories.
    class Server {
    public:
        virtual ~Server() = default;

        /// For the sound that begins from now on.
        virtual Result<void> setCategory(AVAudioSessionCategory /*category*/) { return {}; }
        virtual Result<void> setActive(bool /*isActive*/) { return {}; }
    };

    static AVAudioSession& sharedInstance();

    /// Takes the place of the server that there was.
    void setServer(std::unique_ptr<Server> server) { m_server = std::move(server); }

    AVAudioSessionCategory category() const { return m_category; }
    bool isActive() const { return m_isActive; }

    /// Both leave everything as it was where the server refuses.
    Result<void> setCategory(AVAudioSessionCategory category);
    Result<void> setActive(bool isActive);

private:
    std::unique_ptr<Server> m_server = std::make_unique<Server>();
    AVAudioSessionCategory m_category = AVAudioSessionCategory::SoloAmbient;
    bool m_isActive = false;
};

} // namespace reelsmith
