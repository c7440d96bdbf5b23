// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The round button that closes a sheet or page: drawn 32 wide in a target of 44.
Pressable {
    id: control

    label: "Close"
    radius: Theme.closeSize / 2

    background: Item {
        implicitWidth: Theme.target
        implicitHeight: Theme.target
    }
    contentItem: Item {}

    veils: false

    Rectangle {
        anchors.centerIn: parent
        width: Theme.closeSize
        height: Theme.closeSize
        radius: Theme.closeSize / 2
        color: Theme.field

        Icon {
            anchors.centerIn: parent
            name: "closeBold"
            color: Theme.inkSoft
            size: Theme.smallIcon
        }
        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: control.pressed ? Theme.pressedVeil : Theme.hoverVeil
            visible: control.pressed || control.hovered
        }
    }
}
