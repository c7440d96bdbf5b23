// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <optional>

namespace reelsmith {

/// When the next upload is due. A value, which is kept so that it holds from one process to the next.
struct UploadSchedule {
    using Clock = std::chrono::system_clock;
    using Milliseconds = std::chrono::milliseconds;

    static constexpr Milliseconds longestGrownWait = std::chrono::hours(6);

    Milliseconds since{0}; ///< the end of the last upload, since 1970; 0 where there was none
    Milliseconds wait{0};  ///< how long to wait after a failure; 0 after a success
    int failures = 0;      ///< in a row

    bool operator==(const UploadSchedule&) const = default;

    /// How long the next upload has to wait: until `interval` after a success, or the wait after a failure,
    /// has passed. Where the clock has been set back behind the last upload, not at all.
    Milliseconds remaining(Clock::time_point now, std::chrono::seconds interval) const;

    /// The schedule while a request is under way. It stays where the process ends before the answer: the next
    /// upload then waits for `shortest`, and no failure has been added.
    UploadSchedule underWay(Clock::time_point now, Milliseconds shortest) const;

    /// The schedule after an upload that has come to its end.
    static UploadSchedule afterSuccess(Clock::time_point now);

    /// The schedule after one more failure: the wait is what the collector asks for, if that is not too
    /// short, else it doubles from `shortest` with each failure. `spread`, 0…1, lengthens it by up to a half,
    /// so that installations that failed together do not come back together.
    UploadSchedule afterFailure(Clock::time_point now, std::optional<Milliseconds> retryAfter,
                                Milliseconds shortest, double spread) const;
};

} // namespace reelsmith
