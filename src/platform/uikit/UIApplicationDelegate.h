// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QUrl;

namespace reelsmith {

/// Which ways up the application's screens may be shown.
enum class UIInterfaceOrientationMask { Portrait = 2, All = 30 };

/// What the platform calls at the turns of the application's life. Main thread.
class UIApplicationDelegate {
public:
    virtual ~UIApplicationDelegate() = default;

    virtual bool didFinishLaunchingWithOptions() = 0;
    virtual UIInterfaceOrientationMask supportedInterfaceOrientations() const = 0;

    /// A file that another application hands over; answers whether it is taken.
    virtual bool open(const QUrl& url) = 0;
};

} // namespace reelsmith
