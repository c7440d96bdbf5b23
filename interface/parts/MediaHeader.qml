// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// What a sheet or card is about: a picture (`source`, `pictureSize` wide), `title` over `note`, and a close button
/// (`hasClose`, `closed`).
Item {
    id: header

    property App.ImageView source
    property real pictureSize: 64
    property string title
    property int titleLines: 2
    property TextStyle titleStyle: Theme.strong
    property string note
    property TextStyle noteStyle: Theme.smallNote
    property bool hasClose: true

    // The button's target reaches over the edge, so that what is drawn of it keeps to it.
    readonly property real closeOverhang: (Theme.target - Theme.closeSize) / 2

    signal closed

    width: parent?.width ?? 0
    implicitHeight: Math.max(picture.height, words.height)

    Picture {
        id: picture

        width: header.pictureSize
        height: header.pictureSize
        source: header.source
    }
    Column {
        id: words

        anchors.left: picture.right
        anchors.leftMargin: Theme.iconTextGap
        anchors.right: parent.right
        anchors.rightMargin: header.hasClose ? Theme.closeSize + Theme.gap4 : 0
        y: Math.max(0, (picture.height - height) / 2)

        StyledText {
            width: parent.width
            text: header.title
            textStyle: header.titleStyle
            maximumLineCount: header.titleLines
            elide: Text.ElideRight
        }
        SteadyDigits {
            width: parent.width
            visible: text !== ""
            text: header.note
            textStyle: header.noteStyle
            color: Theme.inkSoft
        }
    }
    CloseButton {
        anchors.right: parent.right
        anchors.rightMargin: -header.closeOverhang
        y: -header.closeOverhang
        visible: header.hasClose
        onClicked: header.closed()
    }
}
