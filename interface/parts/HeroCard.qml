// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// The large card that draws the eye: `iconName` above, `label` and `note` below, art and a round arrow at the right.
Pressable {
    id: control

    property string iconName
    property string note

    implicitHeight: Math.max(Theme.heroHeight, Theme.heroIconTile + words.implicitHeight + topPadding + bottomPadding)
    padding: Theme.heroArtInset
    radius: Theme.heroRadius
    shrinks: true
    Accessible.description: note

    background: App.Artwork {
        name: "convert-hero"
        tints: ({
                "curve": Theme.heroDeep
            })
        ground: Theme.hero
        radius: control.radius
    }
    contentItem: Item {
        IconTile {
            size: Theme.heroIconTile
            radius: Theme.heroTileRadius
            iconName: control.iconName
            iconSize: Theme.heroIcon
            tint: Theme.heroText
            color: Theme.heroTile
        }
        Column {
            id: words

            anchors.bottom: parent.bottom
            anchors.left: parent.left
            anchors.right: arrow.left
            anchors.rightMargin: Theme.gap12

            StyledText {
                width: parent.width
                text: control.label
                textStyle: Theme.title
                color: Theme.heroText
            }
            StyledText {
                width: parent.width
                text: control.note
                textStyle: Theme.message
                color: Theme.heroNote
            }
        }
        Rectangle {
            id: arrow

            anchors.right: parent.right
            anchors.bottom: parent.bottom
            width: Theme.heroButtonSize
            height: Theme.heroButtonSize
            radius: Theme.heroButtonSize / 2
            color: Theme.heroButton

            Icon {
                anchors.centerIn: parent
                name: "arrow"
                color: Theme.heroArrow
            }
        }
    }
}
