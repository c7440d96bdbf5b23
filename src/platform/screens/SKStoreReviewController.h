// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

class UIWindow;

/// Asks the user for a rating in the software store, now and then. Main thread.
class SKStoreReviewController {
public:
    /// The platform decides whether anything is shown: nothing without a store, a key window or when the user
    /// was asked often enough. It waits until nothing is presented; requests meanwhile count as this one.
    static void requestReview();

private:
    static void showWhenFree(UIWindow* window);
    static bool isFree(UIWindow& window);
    static void show(UIWindow& window);
};

} // namespace reelsmith
