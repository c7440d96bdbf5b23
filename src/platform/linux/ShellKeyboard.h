// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/uikit/OnScreenKeyboard.h"

#include <QDBusConnection>

namespace reelsmith {

/// The keyboard of a phone's shell. It is asked by name because it does not come up by itself for programs
/// that lack the newest way of telling it about text fields.
class ShellKeyboard : public OnScreenKeyboard {
public:
    explicit ShellKeyboard(const QDBusConnection& sessionBus) : m_bus(sessionBus) {}

    void setVisible(bool isVisible) override;

private:
    QDBusConnection m_bus;
};

} // namespace reelsmith
