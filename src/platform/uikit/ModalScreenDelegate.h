// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace reelsmith {

/// Owner of a screen that hands back a result: it presented that screen. Main thread.
class ModalScreenDelegate {
public:
    virtual ~ModalScreenDelegate() = default;

    /// Takes away what it presents, animated; `completion` runs after that.
    virtual void dismissPresentedScreen(std::function<void()> completion) = 0;
};

} // namespace reelsmith
