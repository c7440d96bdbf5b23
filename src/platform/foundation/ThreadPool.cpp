// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/ThreadPool.h"

#include <system_error>
#include <utility>

namespace reelsmith {

bool ThreadPool::start(Work work) {
    const std::lock_guard lock(m_mutex);
    const bool isOneFree = m_waiting.size() < m_freeCount;
    if (!isOneFree && m_threads.size() < m_mostThreads && !addThread() && m_threads.empty())
        return false;
    m_waiting.push_back(std::move(work));
    m_news.notify_one();
    return true;
}

bool ThreadPool::addThread() {
    try {
        m_threads.emplace_back([this] { run(); });
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void ThreadPool::run() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        ++m_freeCount;
        m_news.wait(lock, [this] { return m_isOver || !m_waiting.empty(); });
        --m_freeCount;
        if (m_waiting.empty())
            return;
        Work work = std::move(m_waiting.front());
        m_waiting.pop_front();
        lock.unlock();
        work();
        work = nullptr;
        lock.lock();
    }
}

void ThreadPool::waitForDone() {
    std::unique_lock lock(m_mutex);
    m_isOver = true;
    m_news.notify_all();
    while (!m_threads.empty()) {
        std::vector<std::thread> threads = std::exchange(m_threads, {});
        lock.unlock();
        for (std::thread& thread : threads)
            thread.join();
        lock.lock();
    }
    m_isOver = false;
}

} // namespace reelsmith
