// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// Its children stand in a column that scrolls when it is higher than this, and scrolls to what has the focus.
/// `margin` is free at both sides and scrolls with them, `spacing` between them.
Flickable {
    id: area

    property real margin: 0
    property alias spacing: column.spacing
    property alias topPadding: column.topPadding
    property alias bottomPadding: column.bottomPadding
    default property alias rows: column.data

    implicitHeight: column.implicitHeight
    contentHeight: column.implicitHeight
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentHeight > height
    clip: interactive
    onHeightChanged: follower.staySeen()
    onContentHeightChanged: follower.staySeen()

    Column {
        id: column

        x: area.margin
        width: area.width - 2 * area.margin
    }

    App.FocusFollower {
        id: follower

        flickable: area
    }
}
