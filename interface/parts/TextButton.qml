// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Words to press, without a ground: `label`, as in "Cancel" in a bar or "See more".
Pressable {
    id: control

    radius: Theme.fieldRadius
    leftPadding: Theme.gap8
    rightPadding: Theme.gap8
    face: ground

    contentItem: StyledText {
        verticalAlignment: Text.AlignVCenter
        text: control.label
        textStyle: Theme.strong
        color: Theme.accent
    }

    Item {
        id: ground

        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: Math.min(control.implicitContentHeight, parent.height - 2 * Theme.gap8) + Theme.gap8
    }
}
