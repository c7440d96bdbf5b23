// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The root of a screen that fills its place. The window moves `slide` (1 → 0 as it is pushed, 0 → −1 as another is
/// pushed over it) or, when `isPresented`, `presence` (0 → 1), each evenly in time; what that looks like is decided
/// here. Its children have the column in the middle, or all of it (`fillsWindow`). A presented screen comes from below,
/// or only fades in (`dissolves`).
FocusScope {
    id: screen

    property real presence: 1
    property real slide: 0
    property bool isPresented: false
    property bool dissolves: false
    property int appearDuration: isPresented ? (dissolves ? Theme.fade : Theme.sheetUp) : Theme.push
    property int disappearDuration: isPresented ? (dissolves ? Theme.fade : Theme.sheetDown) : Theme.push
    property color ground: Theme.canvas
    property bool fillsWindow: false
    default property alias content: stage.data

    readonly property bool isColumn: !fillsWindow && width > Theme.columnWidth
    readonly property real aside: slide > 0 ? Math.pow(slide, 3) : Theme.pushedAside * (Math.pow(1 + slide, 3) - 1)

    focus: true
    opacity: dissolves ? Math.min(presence, 1 - Math.max(slide, 0)) : 1
    transform: Translate {
        x: screen.dissolves ? 0 : screen.aside * screen.width
        y: screen.dissolves ? 0 : Math.pow(1 - screen.presence, 3) * screen.height
    }

    Rectangle {
        anchors.fill: parent
        color: screen.isColumn ? Theme.backdrop : screen.ground
    }
    Rectangle {
        anchors.fill: stage
        anchors.margins: -Theme.hair
        color: screen.ground
        border.width: Theme.hair
        border.color: Theme.line
        visible: screen.isColumn
    }
    // Nothing below takes what misses the controls of this screen.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    Item {
        id: stage

        anchors.horizontalCenter: parent.horizontalCenter
        width: screen.isColumn ? Theme.columnWidth : parent.width
        height: parent.height
    }
    Rectangle {
        anchors.fill: parent
        color: "black"
        opacity: Theme.pushedAsideDarkness * Math.max(0, -screen.slide)
        visible: opacity > 0
    }
}
