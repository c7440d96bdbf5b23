// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <utility>

namespace reelsmith {

/// What the desktop does for users who do not see the screen. Main thread.
class UIAccessibility {
public:
    UIAccessibility() = delete;

    /// Whether a screen reader, or another program like one, is at work: then nothing may vanish by itself.
    static bool isVoiceOverRunning() { return answer()(); }

    /// Where that is known from; nothing is at work before.
    static void setAnswer(std::function<bool()> isRunning) { answer() = std::move(isRunning); }

private:
    static std::function<bool()>& answer() {
        static std::function<bool()> isRunning = [] { return false; };
        return isRunning;
    }
};

} // namespace reelsmith
