// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// A button of any look, by finger, mouse, Space or Return: `clicked`, from 44 points on. `label` is what it is called
/// for those who hear it, `radius` its shape, `isEnabled` whether it answers. It shows a press (`veils`, and `shrinks`
/// too) and where the keyboard is, on its `face` where less is drawn than can be pressed.
T.AbstractButton {
    id: control

    property string label
    property bool isEnabled: true
    property real radius: Theme.buttonRadius
    property color ring: Theme.accent
    property bool veils: true
    property bool shrinks: false
    property Item face: background ?? control

    implicitWidth: Math.max(Theme.target, implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(Theme.target, implicitBackgroundHeight, implicitContentHeight + topPadding + bottomPadding)
    enabled: isEnabled
    opacity: isEnabled ? 1 : Theme.disabledOpacity
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    scale: shrinks && pressed ? Theme.pressedScale : 1
    Accessible.name: label
    Accessible.onPressAction: if (control.enabled) control.clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Behavior on scale {
        NumberAnimation {
            duration: Theme.press
        }
    }

    PressMarks {
        anchors.fill: control.face
        control: control
        radius: control.radius
        ring: control.ring
        veils: control.veils
    }
}
