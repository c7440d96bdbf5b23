// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A card that is one button: `iconName` on a tile above, `label` and `note` below.
Pressable {
    id: control

    property string iconName
    property string note
    property color tint: Theme.accent
    property color tileColor: Theme.accentSoft

    implicitHeight: Math.max(Theme.sourceCardHeight,
                             tile.height + Theme.gap8 + words.implicitHeight + topPadding + bottomPadding)
    padding: Theme.cardPadding
    radius: Theme.cardRadius
    shrinks: true
    Accessible.description: note

    background: Card {}
    contentItem: Item {
        IconTile {
            id: tile

            iconName: control.iconName
            tint: control.tint
            color: control.tileColor
        }
        Column {
            id: words

            anchors.bottom: parent.bottom
            width: parent.width

            StyledText {
                width: parent.width
                text: control.label
                textStyle: Theme.strong
            }
            StyledText {
                width: parent.width
                text: control.note
                textStyle: Theme.note
                color: Theme.inkSoft
            }
        }
    }
}
