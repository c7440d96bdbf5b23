// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A short message: `title`, `message` and `actions` (each with a "title" and a "style": "default", "cancel" or
/// "destructive"), two of them side by side where their words have room. `pressed` tells the index.
Overlay {
    id: dialog

    property string title
    property string message
    property var actions: []

    readonly property real widestLabel: Math.max(...actions.map(action => Math.ceil(metrics.advanceWidth(action.title))), 0)
    readonly property bool isStacked: actions.length !== 2 || widestLabel + 2 * Theme.gap16 > (buttons.width - Theme.gap12) / 2
    // What a stray Return may do.
    readonly property int safest: Math.max(0, actions.findIndex(action => action.style === "cancel"))

    signal pressed(int index)

    label: title
    appearDuration: Theme.alert
    disappearDuration: Theme.alert
    Accessible.role: Accessible.AlertMessage

    FontMetrics {
        id: metrics

        font.pixelSize: Theme.strong.scaledSize
        font.weight: Theme.strong.weight
        font.letterSpacing: Theme.strong.tracking
    }
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
        spacing: Theme.gap8

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
                    focus: index === dialog.safest
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
