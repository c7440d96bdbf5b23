// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A white card: surface, round by `radius`, with a soft shadow, or a line where it is dark.
Rectangle {
    id: card

    radius: Theme.cardRadius
    color: Theme.surface
    border.width: Theme.hasCardLines ? Theme.hair : 0
    border.color: Theme.line

    Shadow {
        visible: !Theme.isDark
        shadow: Theme.cardShadow
        radius: card.radius
    }
}
