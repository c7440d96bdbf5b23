// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The same as a row, for low windows and large texts: the tile, `label` and `note`, a chevron. `isHero` fills it.
Pressable {
    id: control

    property string iconName
    property string note
    property color tint: Theme.accent
    property color tileColor: Theme.accentSoft
    property bool isHero: false

    implicitHeight: Math.max(Theme.sourceRowHeight, implicitContentHeight + topPadding + bottomPadding)
    leftPadding: Theme.cardPadding
    rightPadding: Theme.cardPadding
    topPadding: Theme.gap12
    bottomPadding: Theme.gap12
    radius: Theme.cardRadius
    shrinks: true
    Accessible.description: note

    background: Card {
        color: control.isHero ? Theme.hero : Theme.surface
    }
    contentItem: Item {
        implicitHeight: Math.max(tile.height, words.implicitHeight)

        IconTile {
            id: tile

            anchors.verticalCenter: parent.verticalCenter
            iconName: control.iconName
            tint: control.isHero ? Theme.heroText : control.tint
            color: control.isHero ? Theme.heroTile : control.tileColor
        }
        Column {
            id: words

            anchors.left: tile.right
            anchors.leftMargin: Theme.iconTextGap
            anchors.right: chevron.left
            anchors.rightMargin: Theme.gap8
            anchors.verticalCenter: parent.verticalCenter

            StyledText {
                width: parent.width
                text: control.label
                textStyle: Theme.strong
                color: control.isHero ? Theme.heroText : Theme.ink
            }
            StyledText {
                width: parent.width
                text: control.note
                textStyle: Theme.note
                color: control.isHero ? Theme.heroNote : Theme.inkSoft
            }
        }
        Icon {
            id: chevron

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron"
            color: control.isHero ? Theme.heroText : Theme.ink
            size: Theme.rowIcon
        }
    }
}
