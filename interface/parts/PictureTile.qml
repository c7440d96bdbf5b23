// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// A video of the list: its picture (`source`, `pictureHeight` high) over its name (`name`, two lines), in a place of
/// fixed size.
Item {
    id: tile

    property App.ImageView source
    property string name

    readonly property real namePlace: Theme.tileNameGap + 2 * Theme.tileName.scaledLine
    readonly property real pictureHeight: Math.min(width - Theme.target, height - namePlace)

    Picture {
        width: parent.width
        height: tile.pictureHeight
        source: tile.source
        radius: Theme.listPictureRadius
    }
    StyledText {
        x: Theme.hair * 2
        y: tile.pictureHeight + Theme.tileNameGap
        width: parent.width - 2 * x
        text: tile.name
        textStyle: Theme.tileName
        maximumLineCount: 2
        elide: Text.ElideRight
    }
}
