// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Darkens a picture under what lies on its upper edge or, with `isBelow`, its lower one.
Rectangle {
    id: scrim

    property bool isBelow: false

    width: parent.width
    height: Theme.playerScrimHeight
    gradient: Gradient {
        GradientStop {
            position: scrim.isBelow ? 1 : 0
            color: Theme.playerScrim
        }
        GradientStop {
            position: scrim.isBelow ? 0 : 1
            color: "transparent"
        }
    }
}
