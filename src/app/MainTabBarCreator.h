// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

namespace reelsmith {

class MainTabBarController;

/// Builds the main screen. Main thread.
class MainTabBarCreator {
public:
    MainTabBarCreator() = delete;

    /// The tab bar with the application's three tabs. The process remembers the layout of the videos' tab.
    static std::unique_ptr<MainTabBarController> build();

    /// Gives the videos' tab its other layout, if the experiment's value is no longer the one that the tab
    /// bar was built with; not under the eyes of the user.
    static void swapVideosTab(MainTabBarController& tabs);
};

} // namespace reelsmith
