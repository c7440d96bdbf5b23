// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A card that fades in over the middle of a screen, `sideMargin` from its sides. `header` and `footer` stay, its
/// children scroll between them when the window is low. All three are columns. `dimTapped`: a press beside it.
Overlay {
    id: card

    property real sideMargin: Theme.sideMargin
    property alias padding: panel.padding
    property alias header: panel.header
    property alias footer: panel.footer
    property alias spacing: panel.spacing
    property alias gap: panel.gap
    default property alias rows: panel.rows

    Panel {
        id: panel

        anchors.centerIn: parent
        width: parent.width - 2 * card.sideMargin
        height: implicitHeight
        opacity: card.presence
        padding: Theme.centerCardPadding
        tallest: card.height - 2 * Theme.overlayMargin
        radius: Theme.centerCardRadius
        border.width: Theme.hasCardLines ? Theme.hair : 0
        border.color: Theme.line
    }
}
