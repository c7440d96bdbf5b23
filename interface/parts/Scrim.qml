// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Darkens a picture under what lies on its upper edge or, with `isBelow`, its lower one, `reach` high, so that it can
/// be read even on white.
Rectangle {
    id: scrim

    property bool isBelow: false
    property real reach: 0

    width: parent.width
    height: reach + Theme.playerScrimEdge
    gradient: Gradient {
        GradientStop {
            position: scrim.isBelow ? 1 : 0
            color: Theme.playerScrim
        }
        GradientStop {
            position: (scrim.isBelow ? Theme.playerScrimEdge : scrim.reach) / scrim.height
            color: Theme.playerScrim
        }
        GradientStop {
            position: scrim.isBelow ? 0 : 1
            color: "transparent"
        }
    }
}
