// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The picture of a video, with a play button on it.
Item {
    id: row

    required property App.VideoTableViewCell cell

    Picture {
        id: picture

        anchors.fill: parent
        anchors.leftMargin: Theme.sideMargin
        anchors.rightMargin: Theme.sideMargin
        source: row.cell.thumbImageView
        radius: Theme.cardRadius
    }
    FocusRing {
        anchors.fill: picture
        inner: picture.radius
        visible: row.cell.isCurrent
    }
    PlayButton {
        objectName: "play"
        anchors.centerIn: picture
        onClicked: row.cell.playTapped()
    }
}
