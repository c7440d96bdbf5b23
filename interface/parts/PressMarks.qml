// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// What shows on a control that it is pressed or that the mouse is over it (`veils`), and that it has the keyboard: its
/// shape is round by `radius`.
Item {
    id: marks

    required property T.AbstractButton control
    property real radius: 0
    property color ring: Theme.accent
    property bool veils: true

    z: 1

    Rectangle {
        anchors.fill: parent
        radius: marks.radius
        color: marks.control.pressed ? Theme.pressedVeil : Theme.hoverVeil
        visible: marks.veils && (marks.control.pressed || marks.control.hovered)
    }
    FocusRing {
        inner: marks.radius
        ring: marks.ring
        visible: marks.control.activeFocus
    }
}
