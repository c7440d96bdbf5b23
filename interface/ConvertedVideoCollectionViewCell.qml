// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// A video in the library's list.
CellButton {
    id: tile

    required property App.ConvertedVideoCollectionViewCell cell

    item: cell
    label: cell.titleLabel.text
    radius: Theme.listPictureRadius
    shrinks: true

    PictureTile {
        anchors.fill: parent
        source: tile.cell.thumbnailImageView
        name: tile.cell.titleLabel.text
    }
}
