// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/bus/InhibitionLease.h"
#include "platform/uikit/Inhibitor.h"

#include <cstddef>
#include <vector>

namespace reelsmith {

/// Inhibits by the first of several services that grants it.
class DesktopInhibitor : public Inhibitor {
public:
    /// `ways`: in the order in which they are tried.
    explicit DesktopInhibitor(std::vector<TakeLease> ways) : m_ways(std::move(ways)) {}

    void hold() override;
    void letGo() override;

private:
    struct Hold {};

    void tryWay(std::size_t index);

    const std::vector<TakeLease> m_ways;
    // Tells an answer that is still wanted from one that comes too late.
    std::shared_ptr<Hold> m_hold;
    InhibitionLease m_lease;
};

} // namespace reelsmith
