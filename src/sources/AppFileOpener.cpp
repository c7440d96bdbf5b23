// SPDX-License-Identifier: GPL-3.0-or-later
#include "sources/AppFileOpener.h"

#include "platform/foundation/URLs.h"
#include "sources/AcceptedVideoExtensions.h"

#include <algorithm>

namespace reelsmith {

namespace {

struct Slot {
    std::optional<QUrl> pendingURL;
    WeakDelegate<AppFileOpenerDelegate> delegate;
};

Slot& slot() {
    static Slot onlyOne;
    return onlyOne;
}

} // namespace

bool AppFileOpener::accept(const QUrl& url) {
    const QString name = lastPathComponent(url).toLower();
    if (std::ranges::none_of(acceptedVideoExtensions,
                             [&name](const QString& part) { return name.contains(part); }))
        return false;
    setPendingURL(url);
    return true;
}

const std::optional<QUrl>& AppFileOpener::pendingURL() {
    return slot().pendingURL;
}

void AppFileOpener::setPendingURL(const std::optional<QUrl>& url) {
    slot().pendingURL = url;
    if (AppFileOpenerDelegate* delegate = slot().delegate.get(); delegate != nullptr && url)
        delegate->fileReceived(*url);
}

void AppFileOpener::setDelegate(const WeakDelegate<AppFileOpenerDelegate>& delegate) {
    slot().delegate = delegate;
}

} // namespace reelsmith
