// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakes/RunLoop.h"

#include "platform/uikit/UIViewController.h"
#include "platform/uikit/UIWindow.h"

#include <QMap>
#include <stdexcept>

namespace reelsmith {

class WindowApplication;

/// What a user can have before them, by name; together all there is to see. Each leads there from the
/// application's first screen, and throws where it does not get there. They need two films in the folder of
/// the user's videos; what is in the library goes.
const QMap<QString, void (*)(WindowApplication&)>& scenes();

/// The screen in front, once it is one of this kind and takes input. Throws if it never is.
template<typename Screen>
Screen& awaitInFront(UIWindow& window) {
    Screen* found = nullptr;
    const auto isInFront = [&] {
        found = qobject_cast<Screen*>(window.frontmost());
        return found != nullptr && window.presentations().isIdle() && !found->isBeingDismissed();
    };
    return runLoopUntil(isInFront) ? *found : throw std::runtime_error("Another screen is in front");
}

} // namespace reelsmith
