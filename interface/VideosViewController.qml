// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The library as a grid.
Screen {
    id: screen

    required property App.VideosViewController controller

    CollectionView {
        objectName: "videos"
        anchors.fill: parent
        focus: true
        view: screen.controller.collectionView
        label: screen.controller.title

        VideoCount {
            x: Theme.sideMargin
            height: Theme.gridTop
            count: screen.controller.collectionView.count
            order: ", newest first"
        }
    }
    LibraryEmptyState {
        visible: !screen.controller.emptystateView.isHidden
    }
}
