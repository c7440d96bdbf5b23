// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A line of information on a card, with nothing to press: `iconName`, `label`, and a `note` below. `hasLine` draws a
/// line above it, from the text on.
Item {
    id: row

    property string iconName
    property string label
    property string note
    property bool hasLine: false

    readonly property real textLeft: Theme.cardPadding + Theme.iconTile + Theme.gap4 + Theme.hair

    implicitHeight: words.implicitHeight + 2 * Theme.gap12
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ". " + note

    Icon {
        x: Theme.gap24
        anchors.verticalCenter: parent.verticalCenter
        name: row.iconName
        color: Theme.accent
        size: Theme.rowIcon
    }
    Column {
        id: words

        x: row.textLeft
        width: row.width - x - Theme.cardPadding
        anchors.verticalCenter: parent.verticalCenter

        StyledText {
            width: parent.width
            text: row.label
            textStyle: Theme.stepTitle
        }
        StyledText {
            width: parent.width
            text: row.note
            textStyle: Theme.smallNote
            color: Theme.inkSoft
        }
    }
    Rectangle {
        x: row.textLeft
        width: row.width - x
        height: Theme.hair
        color: Theme.line
        visible: row.hasLine
    }
}
