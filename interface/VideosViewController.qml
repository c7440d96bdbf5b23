// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The library as a grid.
Screen {
    id: screen

    required property App.VideosViewController controller

    ListView {
        anchors.fill: parent
        anchors.margins: Theme.sideMargin
        spacing: Theme.gap12
        model: screen.controller.names
        activeFocusOnTab: true
        Accessible.role: Accessible.List
        Accessible.name: "Converted Videos"

        delegate: StyledText {
            required property string modelData

            width: ListView.view.width
            text: modelData
            wrapMode: Text.WrapAnywhere
            Accessible.role: Accessible.ListItem
            Accessible.name: modelData
        }
    }
    StyledText {
        anchors.centerIn: parent
        visible: screen.controller.names.length === 0
        text: "No videos yet"
        textStyle: Theme.heading
    }
}
