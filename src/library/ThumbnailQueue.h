// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <mutex>
#include <stop_token>
#include <vector>

namespace reelsmith {

/// Work on thumbnails: a few pieces side by side in the background, the one asked for last first. However
/// many wait, the global queues stay free for other work. Any thread.
class ThumbnailQueue {
public:
    using Work = std::function<void()>;

    static ThumbnailQueue& shared();

    /// Work that has not begun when `unwanted` is requested is dropped.
    void add(Work work, std::stop_token unwanted);

private:
    struct Piece {
        Work work;
        std::stop_token unwanted;
    };

    void workOff();
    Work takeNewest();

    std::mutex m_mutex;
    std::vector<Piece> m_waiting;
    int m_busyCount = 0;
};

} // namespace reelsmith
