// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// A folder or a document in the picker's own list.
CellButton {
    id: row

    required property App.UIDocumentPickerCell cell

    item: cell
    label: cell.nameLabel.text
    Accessible.description: cell.detailLabel.text
    radius: Theme.fieldRadius
    ringMargin: Theme.focusDistance
    leftPadding: Theme.sideMargin
    rightPadding: Theme.sideMargin

    contentItem: Item {
        IconTile {
            id: tile

            anchors.verticalCenter: parent.verticalCenter
            size: Theme.sheetIconTile
            iconSize: Theme.rowIcon
            iconName: row.cell.isFolder ? "files" : "converted"
            tint: row.cell.isFolder ? Theme.steel : Theme.accent
            color: row.cell.isFolder ? Theme.steelSoft : Theme.accentSoft
        }
        Column {
            anchors.left: tile.right
            anchors.leftMargin: Theme.iconTextGap
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter

            StyledText {
                width: parent.width
                text: row.cell.nameLabel.text
                textStyle: Theme.rowTitle
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
            }
            StyledText {
                width: parent.width
                text: row.cell.detailLabel.text
                textStyle: Theme.smallNote
                color: Theme.inkSoft
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
            }
        }
    }
}
