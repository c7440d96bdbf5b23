// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/DispatchQueue.h"

#include "platform/foundation/ThreadPool.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>

namespace reelsmith {

namespace {

// Work here mostly waits for a worker process: with one thread a core, two thumbnails would hold up an
// export.
constexpr std::size_t leastThreadCount = 16;

/// Only the application's thread runs work and lets go of it, so that what it holds goes there too. (Of a
/// queued call both threads have a share, and the one that is later to drop its own destroys it.)
class MainQueue : public QObject {
public:
    void post(DispatchQueue::Work work) {
        auto call = std::make_unique<QEvent>(QEvent::User);
        {
            const std::lock_guard lock(m_mutex);
            m_waiting.push_back(std::move(work));
        }
        QCoreApplication::postEvent(this, call.release());
    }

protected:
    void customEvent(QEvent*) override { takeFirst()(); }

private:
    DispatchQueue::Work takeFirst() {
        const std::lock_guard lock(m_mutex);
        DispatchQueue::Work first = std::move(m_waiting.front());
        m_waiting.pop_front();
        return first;
    }

    std::mutex m_mutex;
    std::deque<DispatchQueue::Work> m_waiting;
};

std::atomic<MainQueue*> mainQueue;

void postToMain(DispatchQueue::Work work) {
    if (MainQueue* queue = mainQueue)
        queue->post(std::move(work));
}

ThreadPool& globalPool() {
    static ThreadPool pool(std::max<std::size_t>(leastThreadCount, std::thread::hardware_concurrency()));
    return pool;
}

void live() {
    mainQueue = new MainQueue;
    // What is registered first comes last: whoever the work waits for has been told that the application
    // ends.
    qAddPostRoutine([] { delete mainQueue.exchange(nullptr); });
    qAddPostRoutine([] { globalPool().waitForDone(); });
}
Q_COREAPP_STARTUP_FUNCTION(live)

void postToGlobal(DispatchQueue::Work work) {
    if (!globalPool().start(work))
        postToMain(std::move(work));
}

} // namespace

DispatchQueue DispatchQueue::main() {
    return DispatchQueue(postToMain);
}

DispatchQueue DispatchQueue::global(QualityOfService) {
    return DispatchQueue(postToGlobal);
}

} // namespace reelsmith
