// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/bus/DesktopInhibitor.h"

namespace reelsmith {

void DesktopInhibitor::hold() {
    m_hold = std::make_shared<Hold>();
    tryWay(0);
}

void DesktopInhibitor::letGo() {
    m_hold.reset();
    m_lease.reset();
}

void DesktopInhibitor::tryWay(std::size_t index) {
    if (index == m_ways.size())
        return;
    m_ways[index]([this, index, hold = std::weak_ptr(m_hold)](InhibitionLease lease) {
        if (hold.expired())
            return;
        if (lease)
            m_lease = std::move(lease);
        else
            tryWay(index + 1);
    });
}

} // namespace reelsmith
