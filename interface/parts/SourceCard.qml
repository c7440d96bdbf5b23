// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A card that is one button: `iconName` on a tile above, `label` and `note` below.
Pressable {
    id: control

    property string iconName
    property string note
    readonly property alias implicitWordsHeight: words.implicitHeight
    property real wordsHeight: implicitWordsHeight // room for `label` and `note`, which stand at its top
    property color tint: Theme.accent
    property color tileColor: Theme.accentSoft

    implicitHeight: Math.max(Theme.sourceCardHeight,
                             tile.height + Theme.gap8 + wordsHeight + topPadding + bottomPadding)
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

            y: parent.height - control.wordsHeight
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
