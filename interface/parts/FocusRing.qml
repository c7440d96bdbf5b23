// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Shows where the keyboard is: a ring round the item that it is a child of, whose corners are round by `inner`.
Rectangle {
    property real inner: 0
    property color ring: Theme.accent

    anchors.fill: parent
    anchors.margins: -(Theme.focusDistance + Theme.focusWidth)
    z: 2
    radius: inner + Theme.focusDistance + Theme.focusWidth
    color: "transparent"
    border.width: Theme.focusWidth
    border.color: ring
}
