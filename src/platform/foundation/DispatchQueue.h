// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <utility>

namespace reelsmith {

/// How soon a global queue's work is wanted.
enum class QualityOfService { UserInitiated };

/// A place where work runs later. A value: copies mean the same queue.
class DispatchQueue {
public:
    using Work = std::function<void()>;

    /// The application object's thread, one piece of work at a time and in order.
    static DispatchQueue main();

    /// Background threads; pieces of work run side by side, in no fixed order. Where the system yields no
    /// thread, on the main queue.
    static DispatchQueue global(QualityOfService quality);

    /// Runs `work` on the queue, never before this call has returned. Any thread.
    /// On the main queue, work is dropped when there is no application object (any more). A thread that is
    /// not a global queue's own must end before the application object does.
    void async(Work work) const { m_post(std::move(work)); }

private:
    using Post = void (*)(Work work);

    explicit DispatchQueue(Post post) : m_post(post) {}

    Post m_post;
};

} // namespace reelsmith
