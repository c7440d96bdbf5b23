// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace reelsmith {

/// A piece of work that the user waits for, an export or a download, for as long as the object lives. Any
/// thread.
class OngoingWork {
public:
    OngoingWork();
    ~OngoingWork();
    OngoingWork(const OngoingWork&) = delete;
    OngoingWork& operator=(const OngoingWork&) = delete;

    /// Whether any is under way in this process.
    static bool isAny();

    /// Has `observer` called on the main queue when work begins where there was none, and when the last one
    /// ends. There is one observer; an empty one takes its place away.
    static void setObserver(std::function<void()> observer);
};

} // namespace reelsmith
