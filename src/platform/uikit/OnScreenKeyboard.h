// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith {

/// The keyboard that a phone shows on its screen. Main thread. This one: none.
class OnScreenKeyboard {
public:
    virtual ~OnScreenKeyboard() = default;

    virtual void setVisible(bool isVisible) { (void)isVisible; }
};

} // namespace reelsmith
