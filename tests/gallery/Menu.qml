// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

// A tile with its menu open.
Rectangle {
    color: Theme.canvas

    ContextMenu {
        anchors.fill: parent
        anchorRect: Qt.rect(203, 92, 167, 167)
        actions: [
            {
                "title": "Share",
                "image": "share",
                "isDestructive": false
            },
            {
                "title": "Play",
                "image": "play",
                "isDestructive": false
            },
            {
                "title": "Delete",
                "image": "trash",
                "isDestructive": true
            }
        ]

        OverlayTile {
            anchors.fill: parent
            name: "Familienfest 60. Geburtstag Oma Ingrid"
        }
    }
}
