// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Words to press, without a ground: `label`, as in "Cancel" in a bar or "See more".
Pressable {
    id: control

    radius: Theme.fieldRadius
    leftPadding: Theme.gap8
    rightPadding: Theme.gap8

    contentItem: StyledText {
        verticalAlignment: Text.AlignVCenter
        text: control.label
        textStyle: Theme.strong
        color: Theme.accent
    }
}
