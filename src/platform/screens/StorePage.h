// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace reelsmith {

/// This application's page in the user's software store, where it can be rated. Main thread. This one knows
/// of no store.
class StorePage {
public:
    using Completion = std::function<void(bool isOpened)>;

    virtual ~StorePage() = default;

    /// Whether there is a store to open, as far as is known now.
    virtual bool isAvailable() const { return false; }

    /// Calls `completion` once, on the main queue, after this has returned.
    virtual void open(Completion completion);
};

} // namespace reelsmith
