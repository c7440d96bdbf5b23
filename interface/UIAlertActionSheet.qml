// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// A message with a list of choices, from below. A press beside it is the same as Escape.
BottomSheet {
    id: sheet

    required property App.UIAlertController controller

    label: controller.title
    spacing: Theme.gap8
    onDimTapped: controller.goBack()

    StyledText {
        width: parent.width
        visible: text !== ""
        horizontalAlignment: Text.AlignHCenter
        text: sheet.controller.title
        textStyle: Theme.heading
    }
    SpokenText {
        width: parent.width
        visible: text !== ""
        horizontalAlignment: Text.AlignHCenter
        text: sheet.controller.message
        textStyle: Theme.message
        color: Theme.inkSoft
    }
    Repeater {
        model: sheet.controller.actions

        // qmllint disable unqualified
        Button {
            required property var modelData
            required property int index

            width: parent.width
            label: modelData.title
            kind: modelData.style === "destructive" ? Button.Danger : modelData.style === "cancel" ? Button.Secondary : Button.Tonal
            onClicked: sheet.controller.press(index)
        }
        // qmllint enable unqualified
    }
}
