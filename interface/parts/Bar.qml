// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The ground of a bar at the top of a screen, or at its bottom (`isAtBottom`): what lies under it shines through a
/// little, and a hairline ends it. Its contents are its children.
Rectangle {
    id: bar

    property bool isAtBottom: false

    implicitHeight: Theme.barHeight
    color: Theme.barFill

    // Nothing under the bar takes a press meant for it.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        y: bar.isAtBottom ? 0 : bar.height - height
        height: Theme.hair
        color: Theme.hairline
    }
}
