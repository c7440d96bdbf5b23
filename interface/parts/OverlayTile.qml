// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// A video of the grid: its picture (`source`) fills a card with a halo, its name (`name`, two lines) stands on it.
Item {
    id: tile

    property App.ImageView source
    property string name

    Shadow {
        shadow: Theme.tileHalo
        radius: Theme.gridRadius
    }
    Picture {
        anchors.fill: parent
        source: tile.source
        radius: Theme.gridRadius
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.gridRadius
        gradient: Gradient {
            id: scrim

            readonly property real share: Math.min(1, Theme.scrimHeight / Math.max(tile.height, 1))

            GradientStop {
                position: 0
                color: "transparent"
            }
            GradientStop {
                position: 1 - scrim.share
                color: "transparent"
            }
            GradientStop {
                position: 1 - scrim.share * Theme.scrimRest
                color: Theme.scrimMiddle
            }
            GradientStop {
                position: 1
                color: Theme.scrimEnd
            }
        }
    }
    StyledText {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.leftMargin: Theme.gap12
        anchors.rightMargin: Theme.gap12
        anchors.bottomMargin: Theme.tileNameMargin
        text: tile.name
        textStyle: Theme.tileNameOnPicture
        color: Theme.pictureInk
        maximumLineCount: 2
        elide: Text.ElideRight
    }
}
