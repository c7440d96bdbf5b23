// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// An icon to press, without a ground of its own: `iconName` in `tint`, `size` points wide.
Pressable {
    id: control

    property string iconName
    property color tint: Theme.accent
    property real size: Theme.icon

    radius: Theme.fieldRadius
    padding: (Theme.target - size) / 2

    contentItem: Item {
        implicitWidth: control.size
        implicitHeight: control.size

        Icon {
            anchors.centerIn: parent
            name: control.iconName
            color: control.tint
            size: control.size
        }
    }
}
