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
    Spinner {
        anchors.centerIn: parent
        visible: isRunning
        isRunning: !screen.controller.activityIndicatorView.isHidden
    }
    EmptyState {
        anchors.verticalCenter: parent.verticalCenter
        room: parent.height - 2 * bar.height
        visible: !screen.controller.emptyStateView.isHidden
        title: "No videos here"
        message: "Record one or copy it to Videos or Pictures."
    }
}
