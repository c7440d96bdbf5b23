// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/avfoundation/ExportThreads.h"

#include <QCoreApplication>
#include <limits>

namespace reelsmith {

ExportThreads& ExportThreads::shared() {
    static ExportThreads threads;
    return threads;
}

ExportThreads::ExportThreads() : m_threads(std::numeric_limits<std::size_t>::max()) {
    qAddPostRoutine([] { shared().endAll(); });
}

bool ExportThreads::start(const std::shared_ptr<CancellableExport>& running, std::function<void()> work) {
    const std::lock_guard lock(m_mutex);
    if (m_isOver)
        return true;
    std::erase_if(m_running, [](const auto& other) { return other.expired(); });
    m_running.push_back(running);
    return m_threads.start(std::move(work));
}

void ExportThreads::endAll() {
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
        for (const auto& weak : m_running) {
            if (const auto running = weak.lock())
                running->cancel();
        }
    }
    m_threads.waitForDone();
}

} // namespace reelsmith
