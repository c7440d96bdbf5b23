// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/DispatchQueue.h"

#include <QUrl>
#include <functional>
#include <utility>

namespace reelsmith {

/// Opens an address in the program that the user has for it. Main thread. This one knows of no program.
class LinkOpener {
public:
    using Completion = std::function<void(bool isOpened)>;

    virtual ~LinkOpener() = default;

    /// Calls `completion` once, on the main queue, some time after this has returned.
    virtual void open(const QUrl& url, Completion completion) {
        Q_UNUSED(url)
        DispatchQueue::main().async([completion = std::move(completion)] { completion(false); });
    }
};

} // namespace reelsmith
