// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/foundation/DispatchQueue.h"

#include <functional>
#include <utility>

namespace reelsmith {

/// How the user wants applications to look. Main thread. This one stays at what most users want.
class DesktopAppearance {
public:
    struct Settings {
        bool isDark = false;
        bool hasHighContrast = false;
        double textScale = 1; ///< 1: the usual size
        bool isStill = false; ///< nothing moves

        bool operator==(const Settings&) const = default;
    };
    using Observer = std::function<void()>;

    virtual ~DesktopAppearance() = default;

    const Settings& settings() const { return m_settings; }

    /// Has `observer` called on the main queue once, when it is known what the user wants or that nobody can
    /// tell, and then after each change. Not before this has returned.
    virtual void setObserver(Observer observer) { DispatchQueue::main().async(std::move(observer)); }

protected:
    Settings m_settings;
};

} // namespace reelsmith
