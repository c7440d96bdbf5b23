// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// The head of a sheet about one video: its picture (`source`, `pictureSize` wide), its name (`title`), a `note`, and
/// a close button: `closed`.
Item {
    id: header

    property App.ImageView source: null
    property real pictureSize: Theme.sheetPictureSmall
    property string title
    property string note

    signal closed

    implicitHeight: Math.max(picture.height, words.implicitHeight)

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
        anchors.right: close.left
        y: Math.max(0, (picture.height - height) / 2)

        SpokenText {
            width: parent.width
            text: header.title
            textStyle: Theme.strong
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        SpokenText {
            width: parent.width
            topPadding: Theme.gap4
            visible: header.note !== ""
            text: header.note
            textStyle: Theme.smallNote
            color: Theme.inkSoft
            font.preferShaping: false
        }
    }
    CloseButton {
        id: close

        objectName: "close"
        anchors.right: parent.right
        anchors.rightMargin: -(width - Theme.closeSize) / 2
        y: -(height - Theme.closeSize) / 2
        onClicked: header.closed()
    }
}
