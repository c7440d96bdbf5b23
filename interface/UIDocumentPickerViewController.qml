// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// Folders and the documents in them; or only dim, while the desktop's own dialog is open.
FocusScope {
    id: screen

    required property App.UIDocumentPickerViewController controller
    property real presence: 1
    property real slide: 0
    property int appearDuration: list.appearDuration
    property int disappearDuration: list.disappearDuration

    Overlay {
        anchors.fill: parent
        label: "Choosing a file"
        visible: !screen.controller.isListing
        focus: visible
        presence: screen.presence
    }
    Screen {
        id: list

        anchors.fill: parent
        visible: screen.controller.isListing
        focus: visible
        isPresented: true
        presence: screen.presence

        NavigationBar {
            id: bar

            width: parent.width
            title: screen.controller.title
            hasBack: !screen.controller.isAtPlaces
            onBack: screen.controller.goBack()

            TextButton {
                objectName: "cancel"
                label: "Cancel"
                onClicked: screen.controller.cancelTapped()
            }
        }
        CollectionView {
            objectName: "documents"
            anchors.top: bar.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            focus: true
            view: screen.controller.tableView
            label: screen.controller.title
        }
        Spinner {
            anchors.centerIn: parent
            visible: isRunning
            isRunning: !screen.controller.activityIndicatorView.isHidden
        }
        SpokenText {
            anchors.centerIn: parent
            visible: !screen.controller.emptyStateView.isHidden
            text: "No videos here"
            textStyle: Theme.heading
        }
    }
    Binding {
        target: screen.controller.tableView
        property: "rowHeight"
        value: Theme.documentRow
    }
}
