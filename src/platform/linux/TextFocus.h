// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/OnScreenKeyboard.h"

#include <QObject>
#include <memory>

namespace reelsmith {

/// Shows the on-screen keyboard while a text field of this application has the focus, and again when such a
/// field is tapped after the user has put the keyboard away. Needs a QGuiApplication. Main thread.
class TextFocus : public QObject {
public:
    explicit TextFocus(std::unique_ptr<OnScreenKeyboard> keyboard);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void follow(QObject* focusObject);

    const std::unique_ptr<OnScreenKeyboard> m_keyboard;
    bool m_isInTextField = false;
};

} // namespace reelsmith
