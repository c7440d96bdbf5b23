// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/ThreadPool.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace reelsmith {

/// What the application cancels when it ends.
class CancellableExport {
public:
    virtual ~CancellableExport() = default;
    /// Any thread.
    virtual void cancel() = 0;
};

/// The threads of the exports under way, one each. All have ended when the application object is gone. Any
/// thread.
class ExportThreads {
public:
    static ExportThreads& shared();

    /// Calls `work` on a thread of its own, or not at all when the application has ended. False where the
    /// system yields no thread.
    bool start(const std::shared_ptr<CancellableExport>& running, std::function<void()> work);

private:
    ExportThreads();
    void endAll();

    std::mutex m_mutex;
    bool m_isOver = false;
    std::vector<std::weak_ptr<CancellableExport>> m_running;
    ThreadPool m_threads;
};

} // namespace reelsmith
