// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The round button in the middle of the player: what it does depends on whether the video `isPlaying`.
Pressable {
    id: control

    property bool isPlaying: false

    implicitWidth: Theme.playerButtonSize
    implicitHeight: Theme.playerButtonSize
    radius: Theme.playerButtonSize / 2
    ring: Theme.pictureInk
    label: isPlaying ? "Pause" : "Play"

    background: Rectangle {
        radius: control.radius
        color: Theme.playerButton
    }
    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            name: control.isPlaying ? "pause" : "playMark"
            color: Theme.pictureInk
            size: Theme.playerMark
        }
    }
}
