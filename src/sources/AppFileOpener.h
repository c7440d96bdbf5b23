// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/WeakDelegate.h"

#include <QUrl>
#include <optional>

namespace reelsmith {

/// Takes files that other applications hand over. Main thread.
class AppFileOpenerDelegate {
public:
    virtual ~AppFileOpenerDelegate() = default;

    virtual void fileReceived(const QUrl& url) = 0;
};

/// Where a file from another application waits until a screen can take it: at most one, the last. Main
/// thread.
class AppFileOpener {
public:
    AppFileOpener() = delete;

    /// Keeps the file, and tells the delegate, if its name looks like a video's; answers whether it does.
    static bool accept(const QUrl& url);

    static const std::optional<QUrl>& pendingURL();
    /// A URL is handed to the delegate at once, if there is one; it stays until it is cleared.
    static void setPendingURL(const std::optional<QUrl>& url);

    static void setDelegate(const WeakDelegate<AppFileOpenerDelegate>& delegate);
};

} // namespace reelsmith
