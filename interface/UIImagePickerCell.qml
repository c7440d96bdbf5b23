// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// A movie in the photo picker: its picture, and how long it lasts.
CellButton {
    id: tile

    required property App.UIImagePickerCell cell

    item: cell
    label: cell.nameLabel.text
    Accessible.description: cell.durationLabel.text
    radius: 0
    ring: Theme.pictureInk
    ringMargin: Theme.focusDistance
    shrinks: true

    Picture {
        anchors.fill: parent
        radius: 0
        source: tile.cell.thumbnailImageView
    }
    Rectangle {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.labelMargin
        width: duration.implicitWidth + 2 * Theme.labelPadding
        height: duration.implicitHeight + Theme.gap4
        radius: Theme.labelRadius
        color: Theme.label
        visible: duration.text !== ""

        StyledText {
            id: duration

            anchors.centerIn: parent
            text: tile.cell.durationLabel.text
            textStyle: Theme.duration
            color: Theme.pictureInk
        }
    }
}
