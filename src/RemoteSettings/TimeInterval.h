// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace reelsmith::TimeInterval {

constexpr std::chrono::seconds hours(int count) {
    return std::chrono::hours(count);
}

constexpr std::chrono::seconds minutes(int count) {
    return std::chrono::minutes(count);
}

constexpr std::chrono::seconds days(int count) {
    return std::chrono::days(count);
}

} // namespace reelsmith::TimeInterval
