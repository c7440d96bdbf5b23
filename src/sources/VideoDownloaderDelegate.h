// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/services/HTTPClient.h"

namespace reelsmith {

/// Follows a download. Main thread.
class VideoDownloaderDelegate {
public:
    virtual ~VideoDownloaderDelegate() = default;

    /// `fraction`: 0…1. Not called while it is not known how much is to come.
    virtual void didUpdateProgress(double fraction) = 0;

    /// Called before each didUpdateProgress(), and where there is none to call.
    virtual void didReceiveBytes(const DownloadProgress&) {}
};

} // namespace reelsmith
