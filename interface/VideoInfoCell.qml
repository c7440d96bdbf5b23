// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// What is known about a video: its name over its duration and resolution.
Item {
    id: row

    required property App.VideoInfoCell cell

    Card {
        id: card

        anchors.fill: parent
        anchors.leftMargin: Theme.sideMargin
        anchors.rightMargin: Theme.sideMargin

        SpokenText {
            readonly property real free: parent.height - facts.height - 2 * Theme.cardPadding

            x: Theme.cardPadding
            y: Theme.cardPadding
            width: parent.width - 2 * x
            text: row.cell.titleLabel.text
            textStyle: Theme.strong
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            maximumLineCount: free >= 2 * Theme.strong.scaledLine ? 2 : 1
            elide: Text.ElideRight
        }
        Row {
            id: facts

            x: Theme.cardPadding
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.cardPadding
            width: parent.width - 2 * x
            spacing: Theme.gap20

            Fact {
                width: (parent.width - divider.width) / 2 - parent.spacing
                caption: "Duration"
                value: row.cell.durationLabel.text
            }
            Rectangle {
                id: divider

                width: Theme.hair
                height: parent.height
                color: Theme.line
            }
            Fact {
                width: (parent.width - divider.width) / 2 - parent.spacing
                caption: "Resolution"
                value: row.cell.resolutionLabel.text
            }
        }
    }
    FocusRing {
        anchors.fill: card
        inner: card.radius
        visible: row.cell.isCurrent
    }
}
