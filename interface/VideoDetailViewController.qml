// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// One video: its picture, what is known about it, and where it is.
Screen {
    id: screen

    required property App.VideoDetailViewController controller

    TableView {
        objectName: "details"
        anchors.fill: parent
        topMargin: Theme.gap12
        bottomMargin: Theme.gap12
        focus: true
        table: screen.controller.tableView
        label: screen.controller.title

        footer: Row {
            x: Theme.sideMargin + Theme.gap4
            topPadding: Theme.gap12
            spacing: Theme.gap8

            Icon {
                id: folderIcon

                name: "files"
                color: Theme.inkSoft
                size: Theme.smallIcon
            }
            SpokenText {
                width: screen.width - 2 * parent.x - folderIcon.width - parent.spacing
                text: screen.controller.folderLabel.text
                textStyle: Theme.smallNote
                color: Theme.inkSoft
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            }
        }
    }
}
