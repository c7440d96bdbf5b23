// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/ShellKeyboard.h"

#include <QDBusMessage>

namespace reelsmith {

void ShellKeyboard::setVisible(bool isVisible) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("sm.puri.OSK0"), QStringLiteral("/sm/puri/OSK0"),
                                       QStringLiteral("sm.puri.OSK0"), QStringLiteral("SetVisible"));
    call << isVisible;
    // A desktop that has the keyboard installed but not running does not want it.
    call.setAutoStartService(false);
    m_bus.send(call);
}

} // namespace reelsmith
