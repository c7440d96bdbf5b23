// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A row of a sheet or group: `iconName` on a tile, `label`, perhaps a `note` below it and an icon at the end
/// (`endIcon`, or children in place of it). `isDestructive` warns by colour, `isInformation` is not for pressing,
/// `hasLine` draws a line above it, from the text on or over the full width (`hasFullLine`).
Pressable {
    id: control

    property string iconName
    property string note
    property string endIcon
    property bool isDestructive: false
    property bool isInformation: false
    property bool hasLine: false
    property bool hasFullLine: false
    property color tint: isDestructive ? Theme.danger : Theme.ink
    property color tileColor: isDestructive ? Theme.dangerSoft : Theme.field
    property real tileSize: Theme.sheetIconTile
    property real leastHeight: Theme.rowHeight
    property real margin: 0
    property TextStyle titleStyle: Theme.rowTitle
    default property alias end: endRow.data

    readonly property real textLeft: margin + tileSize + Theme.iconTextGap

    implicitHeight: Math.max(leastHeight, words.implicitHeight + topPadding + bottomPadding)
    enabled: isEnabled && !isInformation
    leftPadding: margin
    rightPadding: margin
    topPadding: Theme.rowPadding
    bottomPadding: Theme.rowPadding
    radius: margin > 0 ? Theme.cardRadius : Theme.fieldRadius
    Accessible.ignored: isInformation
    Accessible.description: note

    contentItem: Item {
        IconTile {
            id: tile

            anchors.verticalCenter: parent.verticalCenter
            size: control.tileSize
            iconSize: Theme.rowIcon
            iconName: control.iconName
            tint: control.tint
            color: control.tileColor
        }
        Column {
            id: words

            anchors.left: tile.right
            anchors.leftMargin: Theme.iconTextGap
            anchors.right: endRow.left
            anchors.rightMargin: endRow.width > 0 ? Theme.gap12 : 0
            anchors.verticalCenter: parent.verticalCenter

            SpokenText {
                width: parent.width
                Accessible.ignored: !control.isInformation
                text: control.label
                textStyle: control.titleStyle
                color: control.isDestructive ? Theme.danger : Theme.ink
            }
            SpokenText {
                width: parent.width
                visible: text !== ""
                Accessible.ignored: !control.isInformation
                text: control.note
                textStyle: Theme.smallNote
                color: Theme.inkSoft
            }
        }
        Row {
            id: endRow

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter

            Icon {
                visible: control.endIcon !== ""
                name: control.endIcon
                color: Theme.inkFaint
                size: Theme.rowIcon
            }
        }
    }

    Rectangle {
        x: control.hasFullLine ? 0 : control.textLeft
        width: control.width - x
        height: Theme.hair
        color: Theme.line
        visible: control.hasLine || control.hasFullLine
    }
}
