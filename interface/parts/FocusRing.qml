// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// Shows where the keyboard is: a ring round the item that it is a child of, whose corners are round by `inner`.
/// It is seen while the user works by keys.
Rectangle {
    property real inner: 0
    property color ring: Theme.accent

    anchors.fill: parent
    anchors.margins: -(Theme.focusDistance + Theme.focusWidth)
    z: 2
    radius: inner + Theme.focusDistance + Theme.focusWidth
    color: "transparent"
    opacity: App.Appearance.isByKey ? 1 : 0
    border.width: Theme.focusWidth
    border.color: ring

    // White on a pale picture shows by the line round it.
    Rectangle {
        anchors.fill: parent
        anchors.margins: -border.width
        radius: parent.radius + border.width
        color: "transparent"
        border.width: Theme.focusWidth
        border.color: Theme.label
        visible: Qt.colorEqual(parent.ring, Theme.pictureInk)
    }
}
