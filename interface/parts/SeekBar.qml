// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// Where in a video the user is, and a knob to go elsewhere: `value` seconds of `to`. `label` is what it is called for
/// those who hear it.
T.Slider {
    id: control

    property string label
    property bool isEnabled: true

    // Under these names the toolkit tells them to those who hear the screen.
    readonly property real minimumValue: from
    readonly property real maximumValue: to

    implicitHeight: Theme.target
    leftPadding: Theme.sideMargin
    rightPadding: Theme.sideMargin
    enabled: isEnabled
    opacity: isEnabled ? 1 : Theme.disabledOpacity
    // For keys alone; a knob that is dragged stays where it is let go.
    stepSize: pressed ? 0 : Theme.seekStep
    focusPolicy: Qt.TabFocus
    Accessible.name: label

    background: Item {
        Rectangle {
            x: control.leftPadding
            anchors.verticalCenter: parent.verticalCenter
            width: control.availableWidth
            height: Theme.seekTrack
            radius: Theme.seekTrack / 2
            color: Theme.playerTrack

            Rectangle {
                width: control.visualPosition * parent.width
                height: parent.height
                radius: parent.radius
                color: Theme.pictureInk
            }
        }
    }
    handle: Rectangle {
        x: control.leftPadding + control.visualPosition * (control.availableWidth - width)
        anchors.verticalCenter: parent?.verticalCenter
        width: Theme.seekKnob
        height: Theme.seekKnob
        radius: Theme.seekKnob / 2
        color: Theme.pictureInk

        FocusRing {
            inner: parent.radius
            ring: Theme.pictureInk
            visible: control.activeFocus
        }
    }
}
