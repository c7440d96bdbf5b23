// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The movies on this device, for picking one.
Screen {
    id: screen

    required property App.UIImagePickerController controller

    isPresented: true

    NavigationBar {
        id: bar

        width: parent.width
        title: screen.controller.title

        TextButton {
            objectName: "cancel"
            label: "Cancel"
            onClicked: screen.controller.cancelTapped()
        }
    }
    CollectionView {
        objectName: "videos"
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        view: screen.controller.collectionView
        label: screen.controller.title
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: Theme.sideMargin
        width: parent.width - 2 * x
        visible: !screen.controller.emptyStateView.isHidden
        spacing: Theme.gap8

        StyledText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "No videos here"
            textStyle: Theme.heading
        }
        StyledText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "Record one or copy it to Videos or Pictures."
            textStyle: Theme.note
            color: Theme.inkSoft
        }
    }
}
