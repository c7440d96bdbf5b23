// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace reelsmith::media {

/// Hands values from one thread to another, at most `capacity` of them waiting.
template<typename T>
class BoundedQueue {
public:
    explicit BoundedQueue(std::size_t capacity) : m_capacity(capacity) {}

    /// Waits for room. False when the queue was abandoned: nobody will take the value.
    bool push(T value) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_values.size() < m_capacity || m_isAbandoned; });
        if (m_isAbandoned)
            return false;
        m_values.push_back(std::move(value));
        m_changed.notify_all();
        return true;
    }

    /// Waits for a value. Nothing when the queue is closed and empty, or abandoned.
    std::optional<T> pop() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_values.empty() || m_isClosed || m_isAbandoned; });
        if (m_isAbandoned || m_values.empty())
            return std::nullopt;
        std::optional<T> value(std::move(m_values.front()));
        m_values.pop_front();
        m_changed.notify_all();
        return value;
    }

    /// No more values will come; those waiting are still taken.
    void close() {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
        m_changed.notify_all();
    }

    /// Something failed: wakes both ends for good.
    void abandon() {
        const std::lock_guard lock(m_mutex);
        m_isAbandoned = true;
        m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<T> m_values;
    std::size_t m_capacity;
    bool m_isClosed = false;
    bool m_isAbandoned = false;
};

} // namespace reelsmith::media
