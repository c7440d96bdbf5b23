// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A sheet that comes from below (or fades in where it stands: `dissolves`). `header` and `footer` stay, its children
/// scroll between them when the window is low. All three are columns. `dimTapped`: a press beside it.
Overlay {
    id: sheet

    property bool dissolves: false
    property alias bottomPadding: panel.bottomPadding
    property alias header: panel.header
    property alias footer: panel.footer
    property alias spacing: panel.spacing
    property alias gap: panel.gap
    default property alias rows: panel.rows

    appearDuration: dissolves ? Theme.fade : Theme.sheetUp
    disappearDuration: dissolves ? Theme.fade : Theme.sheetDown

    Panel {
        id: panel

        readonly property real hiddenBy: height + Theme.sheetMargin

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.sheetMargin
        y: sheet.height - Theme.sheetMargin - height + (sheet.dissolves ? 0 : (1 - sheet.arrival) * hiddenBy)
        height: implicitHeight
        opacity: sheet.dissolves ? sheet.presence : 1
        tallest: sheet.height - 2 * Theme.overlayMargin
        radius: Theme.sheetRadius
        border.width: Theme.hair
        border.color: Theme.cardLine
    }
}
