// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The library as a list.
Screen {
    id: screen

    required property App.ConvertedVideosViewController controller

    CollectionView {
        objectName: "videos"
        anchors.fill: parent
        anchors.leftMargin: Theme.sideMargin
        anchors.rightMargin: Theme.sideMargin
        clip: false // the focus ring stands outside the tiles
        focus: true
        view: screen.controller.collectionView
        label: screen.controller.title

        VideoCount {
            height: Theme.listTop
            count: screen.controller.collectionView.count
        }
    }
    LibraryEmptyState {
        visible: !screen.controller.emptyStateView.isHidden
    }
}
