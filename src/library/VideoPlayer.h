// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QUrl;

namespace reelsmith {

class UIViewController;

/// Plays converted videos. Main thread.
class VideoPlayer {
public:
    VideoPlayer() = delete;

    /// Presents the player with the file `url` from `screen`; the user starts it there.
    static void play(const QUrl& url, UIViewController& screen);
};

} // namespace reelsmith
