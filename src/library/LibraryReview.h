// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

class UIViewController;
class UserDefaults;

/// Decides when a library screen asks for a review of the application: once, in the second run in which any
/// of them was opened. Main thread.
class LibraryReview {
public:
    /// The one of this run, on the standard store.
    static LibraryReview& shared();

    /// A run of the application; `userDefaults` must outlive it.
    explicit LibraryReview(UserDefaults& userDefaults) : m_userDefaults(userDefaults) {}

    /// Counts the run, the first time, and answers whether a review is due.
    bool isDue();

    /// Requests a review if one is due and `screen` stands in a tab.
    void screenDidAppear(const UIViewController& screen);

private:
    UserDefaults& m_userDefaults;
    bool m_countedThisRun = false;
    bool m_reviewRequestedThisRun = false;
};

} // namespace reelsmith
