// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/Animated.h"

#include <functional>
#include <vector>

namespace reelsmith {

class UIViewController;

/// One change of what is on the screen.
struct Transition {
    enum class Kind {
        Present, ///< `screens` holds the one that comes, on top of everything
        Dismiss, ///< `screens` go, the uppermost last
        Push,    ///< `screens` holds the one that comes, over `other`
        Pop,     ///< `screens` go, the uppermost last, and uncover `other`
    };

    Kind kind;
    std::vector<UIViewController*> screens;
    UIViewController* other = nullptr;
    Animated animated = Animated::No;
};

/// Shows changes of screens. This one shows nothing: for a process without a display. Main thread.
class TransitionDriver {
public:
    virtual ~TransitionDriver() = default;

    /// Calls `done` exactly once when the change has been seen, never before this call has returned. The
    /// screens live until then.
    virtual void run(const Transition& transition, std::function<void()> done);

    /// The screen is about to end: what shows it must go before this returns.
    virtual void willRelease(UIViewController& /*screen*/) {}
};

} // namespace reelsmith
