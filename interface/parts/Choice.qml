// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// One of several that exclude each other: `isChosen`, and `clicked`. The group that it stands in has the keyboard.
/// `label` is what it is called for those who hear it, `hasKeyboard` whether the group's keyboard is on it.
T.RadioButton {
    id: control

    property string label
    property bool isChosen: false
    property bool hasKeyboard: false
    property real radius: 0
    property bool veils: true

    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    checked: isChosen
    Accessible.name: label
    Accessible.focused: hasKeyboard
    Accessible.onPressAction: if (control.enabled) control.clicked()
    Accessible.onToggleAction: if (control.enabled) control.clicked()

    PressMarks {
        anchors.fill: parent
        control: control
        radius: control.radius
        veils: control.veils
    }
}
