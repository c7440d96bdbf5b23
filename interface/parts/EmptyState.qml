// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// What stands where nothing is yet: art, `title`, one sentence (`message`), and below a short line its children, which
/// say what to do. Put it where its middle belongs, or a little above. Where it would be higher than `room`, the art
/// gives way.
Column {
    id: state

    property string title
    property string message
    property real room: parent?.height ?? 0
    default property alias hint: hintRow.data

    width: parent?.width ?? 0

    App.Artwork {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Theme.emptyArtWidth
        height: Theme.emptyArtHeight
        visible: height + words.height <= state.room
        name: "library-empty"
        tints: ({
                "line": Theme.cardLine,
                "soft": Theme.accentSoft,
                "accent": Theme.accent,
                "mark": Theme.accentInk,
                "spark": Theme.spark
            })
    }
    Column {
        id: words

        width: parent.width

        Item {
            width: 1
            height: Theme.gap12
        }
        SpokenText {
            x: Theme.gap32
            width: parent.width - 2 * x
            horizontalAlignment: Text.AlignHCenter
            text: state.title
            textStyle: Theme.title
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: Theme.gap8
        }
        SpokenText {
            x: Theme.gap48
            width: parent.width - 2 * x
            horizontalAlignment: Text.AlignHCenter
            text: state.message
            color: Theme.inkSoft
        }
        Item {
            width: parent.width
            height: 2 * Theme.gap24
            visible: hintRow.width > 0

            Rectangle {
                anchors.centerIn: parent
                width: Theme.shortLine
                height: Theme.hair
                color: Theme.cardLine
            }
        }
        Row {
            id: hintRow

            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.iconTextGap
        }
    }
}
