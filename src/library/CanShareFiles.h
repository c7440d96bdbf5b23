// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

namespace reelsmith {

class UIViewController;

/// What a screen adopts to share a file. Main thread.
class CanShareFiles {
public:
    virtual ~CanShareFiles() = default;

    /// Offers `file` in a share sheet over the screen.
    void share(const QUrl& file);

protected:
    virtual UIViewController& sharingScreen() = 0;

private:
    enum class CameraRoll { WithAccessOnly, Excluded };

    void share(const QUrl& file, CameraRoll cameraRoll);
};

} // namespace reelsmith
