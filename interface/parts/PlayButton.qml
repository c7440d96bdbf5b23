// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The round button on a video's picture.
Pressable {
    id: control

    implicitWidth: Theme.playButton
    implicitHeight: Theme.playButton
    radius: Theme.playButton / 2
    ring: Theme.pictureInk
    label: "Play"

    background: Rectangle {
        radius: control.radius
        color: Theme.surface

        Shadow {
            shadow: Theme.playShadow
            radius: control.radius
        }
    }
    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            name: "playMark"
            size: Theme.gap32
            color: Theme.accent
        }
    }
}
