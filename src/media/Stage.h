// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/FailureLatch.h"

#include <functional>
#include <thread>

namespace reelsmith::media {

/// One stage of an export on a thread of its own. Whatever stops it, an error or a want of memory, goes to
/// the latch.
class Stage {
public:
    Stage() = default;
    /// Runs `work` now. The latch outlives the stage.
    Stage(FailureLatch& latch, std::function<Result<void>()> work);
    Stage(Stage&&) = default;
    Stage& operator=(Stage&&) = default;
    ~Stage() { join(); }

    /// Waits until the work has returned.
    void join();

private:
    std::thread m_thread;
};

} // namespace reelsmith::media
