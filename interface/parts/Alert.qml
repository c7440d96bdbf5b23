// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A short message: `title`, `message` and `actions` (each with a "title" and a "style": "default", "cancel" or
/// "destructive"), two of them side by side. `pressed` tells the index.
Overlay {
    id: dialog

    property string title
    property string message
    property var actions: []

    readonly property bool isStacked: actions.length !== 2 || Theme.isLargeText

    signal pressed(int index)

    label: title
    appearDuration: Theme.alert
    disappearDuration: Theme.alert
    Accessible.role: Accessible.AlertMessage

    Panel {
        anchors.centerIn: parent
        width: Math.min(Theme.alertWidth, parent.width - 2 * Theme.alertMargin)
        height: implicitHeight
        opacity: dialog.presence
        scale: Theme.alertScale + (1 - Theme.alertScale) * dialog.arrival
        tallest: dialog.height - 2 * Theme.overlayMargin
        radius: Theme.centerCardRadius
        border.width: Theme.hasCardLines ? Theme.hair : 0
        border.color: Theme.line
        spacing: Theme.gap4

        StyledText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: dialog.title
            textStyle: Theme.heading
        }
        SpokenText {
            width: parent.width
            visible: text !== ""
            horizontalAlignment: Text.AlignHCenter
            text: dialog.message
            textStyle: Theme.message
            color: Theme.inkSoft
        }
        footer: Grid {
            id: buttons

            width: parent.width
            columns: dialog.isStacked ? 1 : 2
            spacing: dialog.isStacked ? Theme.gap8 : Theme.gap12

            Repeater {
                model: dialog.actions

                // qmllint disable unqualified
                Button {
                    required property var modelData
                    required property int index

                    width: dialog.isStacked ? buttons.width : (buttons.width - buttons.spacing) / 2
                    focus: index === 0
                    label: modelData.title
                    kind: modelData.style === "destructive" ? Button.Danger : modelData.style === "cancel" ? Button.Secondary
                                                                                                       : Button.Tonal
                    leastHeight: Theme.buttonInAlert
                    onClicked: dialog.pressed(index)
                }
                // qmllint enable unqualified
            }
        }
    }
}
