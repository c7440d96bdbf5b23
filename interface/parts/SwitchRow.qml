// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A row of a group with a switch: `iconName` on a tile, `label`, what it is about (`note`), and words that lead to
/// more (`linkLabel`, `linkTapped`). `switched` tells what the user makes of `isOn`.
Item {
    id: row

    property string iconName
    property string label
    property string note
    property string linkLabel
    property bool isOn: false

    readonly property real textLeft: Theme.cardPadding + Theme.rowIconTile + Theme.iconTextGap

    signal switched(bool isOn)
    signal linkTapped

    implicitHeight: words.implicitHeight

    IconTile {
        x: Theme.cardPadding
        anchors.verticalCenter: toggle.verticalCenter
        size: Theme.rowIconTile
        iconSize: Theme.rowIcon
        iconName: row.iconName
    }
    Switch {
        id: toggle

        anchors.right: parent.right
        anchors.rightMargin: Theme.cardPadding
        y: Theme.gap8 + (Math.max(height, title.height) - height) / 2
        label: row.label
        checked: row.isOn
        onToggled: row.switched(checked)
    }
    Column {
        id: words

        x: row.textLeft
        width: row.width - x - Theme.cardPadding
        topPadding: Theme.gap8
        bottomPadding: Theme.gap8

        StyledText {
            id: title

            width: parent.width - toggle.width - Theme.gap12
            height: Math.max(implicitHeight, Theme.target)
            verticalAlignment: Text.AlignVCenter
            text: row.label
            textStyle: Theme.rowTitle
        }
        SpokenText {
            width: parent.width
            text: row.note
            textStyle: Theme.note
            color: Theme.inkSoft
        }
        TextButton {
            objectName: "seeMore"
            x: -leftPadding
            label: row.linkLabel
            onClicked: row.linkTapped()
        }
    }
}
