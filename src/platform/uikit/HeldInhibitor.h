// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Inhibitor.h"

#include <memory>
#include <utility>

namespace reelsmith {

/// An inhibitor that remembers whether it is held. Lets go when it is destroyed. Main thread.
class HeldInhibitor {
public:
    explicit HeldInhibitor(std::unique_ptr<Inhibitor> inhibitor) : m_inhibitor(std::move(inhibitor)) {}
    ~HeldInhibitor() { setHeld(false); }
    HeldInhibitor(const HeldInhibitor&) = delete;
    HeldInhibitor& operator=(const HeldInhibitor&) = delete;

    void setHeld(bool isHeld) {
        if (std::exchange(m_isHeld, isHeld) == isHeld)
            return;
        if (isHeld)
            m_inhibitor->hold();
        else
            m_inhibitor->letGo();
    }

    /// Another inhibitor takes over, held as this one was.
    void replace(std::unique_ptr<Inhibitor> inhibitor) {
        const bool isHeld = m_isHeld;
        setHeld(false);
        m_inhibitor = std::move(inhibitor);
        setHeld(isHeld);
    }

private:
    std::unique_ptr<Inhibitor> m_inhibitor;
    bool m_isHeld = false;
};

} // namespace reelsmith
