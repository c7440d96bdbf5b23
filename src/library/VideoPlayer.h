// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QUrl;

namespace reelsmith {

class UIViewController;

/// Plays converted videos. Main thread.
class VideoPlayer {
public:
    VideoPlayer() = delete;

    /// Shows the file `url` to the user of `screen`. There is no player screen yet: the desktop's own player
    /// opens the file, to be replaced.
    static void play(const QUrl& url, UIViewController& screen);
};

} // namespace reelsmith
