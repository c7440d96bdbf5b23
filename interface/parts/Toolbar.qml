// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// The bar at the bottom of a screen with its `items`, spread over the width. It slides out of sight below its place
/// while it `isShown` no more.
Bar {
    id: bar

    property bool isShown: false
    property var items: []
    property real presence: isShown ? 1 : 0

    y: (parent?.height ?? 0) - presence * height
    isAtBottom: true
    visible: presence > 0

    Behavior on presence {
        NumberAnimation {
            duration: Theme.toolbar
            easing.type: Easing.OutCubic
        }
    }
    Repeater {
        model: bar.items

        // qmllint disable unqualified
        delegate: IconButton {
            required property App.UIBarButtonItem modelData
            required property int index
            readonly property bool isTrash: modelData.systemItem === App.UIBarButtonItem.Trash

            objectName: isTrash ? "trash" : "share"
            x: Theme.gap12 + index / Math.max(1, bar.items.length - 1) * (bar.width - width - 2 * Theme.gap12)
            anchors.verticalCenter: parent?.verticalCenter
            visible: modelData.systemItem !== App.UIBarButtonItem.FlexibleSpace
            label: isTrash ? "Delete" : "Share"
            iconName: isTrash ? "trash" : "share"
            tint: isTrash ? Theme.danger : Theme.accent
            onClicked: modelData.tap()
        }
        // qmllint enable unqualified
    }
}
