// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/VideoPlayer.h"

#include "library/CustomPlayerVC.h"
#include "platform/avfoundation/AVAudioSession.h"
#include "platform/uikit/RotationRestricting.h"

namespace reelsmith {

void VideoPlayer::play(const QUrl& url, UIViewController& screen) {
    auto player = std::make_unique<AVPlayer>(url);
    auto playerScreen = std::make_unique<CustomPlayerVC>();
    playerScreen->setPlayer(std::move(player));
    if (auto* application = RotationRestricting::ofApplication())
        application->setRestrictRotation(false);
    // A video is worth seeing whatever the sound server thinks of it.
    AVAudioSession& session = AVAudioSession::sharedInstance();
    static_cast<void>(session.setCategory(AVAudioSessionCategory::Playback));
    static_cast<void>(session.setActive(true));
    screen.present(std::move(playerScreen), Animated::Yes);
}

} // namespace reelsmith
