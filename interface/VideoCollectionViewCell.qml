// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// A video in the library's grid: a card, with room around it for its halo.
CellButton {
    id: tile

    required property App.VideoCollectionViewCell cell

    item: cell
    label: cell.titleLabel.text
    radius: Theme.gridRadius
    ringMargin: Theme.tileInset - Theme.focusDistance - Theme.focusWidth
    face: card
    shrinks: true

    OverlayTile {
        id: card

        anchors.fill: parent
        anchors.margins: Theme.tileInset
        source: tile.cell.videoImageView
        name: tile.cell.titleLabel.text
    }
}
