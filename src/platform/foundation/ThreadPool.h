// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace reelsmith {

/// Threads that run pieces of work side by side. A thread comes with work that finds none free. Any thread.
class ThreadPool {
public:
    using Work = std::function<void()>;

    explicit ThreadPool(std::size_t mostThreads) : m_mostThreads(mostThreads) {}
    ~ThreadPool() { waitForDone(); }
    ThreadPool(const ThreadPool&) = delete;
    ThreadPool& operator=(const ThreadPool&) = delete;

    /// Runs `work` as soon as a thread is free. False where the system yields none at all: then it never
    /// runs.
    bool start(Work work);

    /// Waits until all work is done, that which comes meanwhile too, and the threads have ended. Not on one
    /// of them.
    void waitForDone();

private:
    bool addThread();
    void run();

    const std::size_t m_mostThreads;
    std::mutex m_mutex;
    std::condition_variable m_news;
    std::deque<Work> m_waiting;
    std::vector<std::thread> m_threads;
    std::size_t m_freeCount = 0;
    bool m_isOver = false;
};

} // namespace reelsmith
