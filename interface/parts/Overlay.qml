// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The root of what comes over a screen and leaves it visible: it dims the whole window and gives its children the
/// column in the middle. The window moves `presence` (0 → 1) evenly in time; `arrival` is the same with a soft end,
/// for what slides or grows. `dimTapped`: a press beside the children. `label` is what it is called for those who hear
/// it.
FocusScope {
    id: overlay

    property string label
    property real presence: 1
    property real slide: 0
    property int appearDuration: Theme.fade
    property int disappearDuration: Theme.fade
    property color dim: Theme.dim
    default property alias content: stage.data

    readonly property real arrival: 1 - Math.pow(1 - presence, 3)
    readonly property real columnLeft: stage.x

    signal dimTapped

    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: label

    Rectangle {
        anchors.fill: parent
        color: overlay.dim
        opacity: overlay.presence
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.AllButtons
        onClicked: overlay.dimTapped()
        onWheel: wheel => wheel.accepted = true
    }
    Item {
        id: stage

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, Theme.columnWidth)
        height: parent.height
    }
}
