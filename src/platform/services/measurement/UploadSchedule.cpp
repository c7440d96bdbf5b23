// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/UploadSchedule.h"

#include <algorithm>

namespace reelsmith {

namespace {

// More doublings than that lead past every limit.
constexpr int mostDoublings = 20;

UploadSchedule::Milliseconds sinceEpoch(UploadSchedule::Clock::time_point time) {
    return std::chrono::duration_cast<UploadSchedule::Milliseconds>(time.time_since_epoch());
}

} // namespace

UploadSchedule::Milliseconds UploadSchedule::remaining(Clock::time_point now,
                                                       std::chrono::seconds interval) const {
    const Milliseconds elapsed = sinceEpoch(now) - since;
    const Milliseconds whole = failures > 0 ? wait : Milliseconds(interval);
    if (since == Milliseconds::zero() || elapsed < Milliseconds::zero())
        return Milliseconds::zero();
    return std::max(Milliseconds::zero(), whole - elapsed);
}

UploadSchedule UploadSchedule::underWay(Clock::time_point now, Milliseconds shortest) const {
    return {sinceEpoch(now), shortest, std::max(failures, 1)};
}

UploadSchedule UploadSchedule::afterSuccess(Clock::time_point now) {
    return {sinceEpoch(now), Milliseconds::zero(), 0};
}

UploadSchedule UploadSchedule::afterFailure(Clock::time_point now, std::optional<Milliseconds> retryAfter,
                                            Milliseconds shortest, double spread) const {
    const Milliseconds grown =
        std::min(longestGrownWait, shortest * (1 << std::min(failures, mostDoublings)));
    const Milliseconds base = std::max(shortest, retryAfter.value_or(grown));
    const Milliseconds more(static_cast<Milliseconds::rep>(static_cast<double>(base.count()) * spread / 2));
    return {sinceEpoch(now), base + more, failures + 1};
}

} // namespace reelsmith
