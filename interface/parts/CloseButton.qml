// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The round button that closes a sheet or page: drawn 32 wide in a target of 44.
Pressable {
    label: "Close"
    radius: Theme.closeSize / 2

    face: circle

    Rectangle {
        id: circle

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
    }
}
