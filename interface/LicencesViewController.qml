// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// Whose work the application is made of, and the terms.
Screen {
    id: screen

    required property App.LicencesViewController controller

    ScrollArea {
        anchors.fill: parent
        focus: true
        margin: Theme.sideMargin
        spacing: Theme.gap24
        topPadding: Theme.gap20
        bottomPadding: Theme.gap24
        activeFocusOnTab: true
        Accessible.role: Accessible.Document
        Accessible.name: screen.controller.title
        Keys.onUpPressed: contentY = Math.max(0, contentY - height / 2)
        Keys.onDownPressed: contentY = Math.max(0, Math.min(contentHeight - height, contentY + height / 2))

        SpokenText {
            width: parent.width
            text: screen.controller.partsLabel.text
            textStyle: Theme.note
        }
        SpokenText {
            width: parent.width
            text: screen.controller.licenceLabel.text
            textStyle: Theme.smallNote
            color: Theme.inkSoft
        }
    }
}
