// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The bar at the top of a screen: `title`, large on a root screen and small behind a back button (`hasBack`, `back`)
/// on a pushed one. Its children stand at the right end.
Bar {
    id: bar

    property string title
    property bool hasBack: false
    default property alias actions: actionRow.data

    signal back

    implicitHeight: Math.max(Theme.barHeight, name.textStyle.scaledLine + 2 * Theme.gap12)

    IconButton {
        id: backButton

        anchors.verticalCenter: parent.verticalCenter
        x: Theme.gap4
        width: Theme.backButton
        height: Theme.backButton
        visible: bar.hasBack
        label: "Back"
        iconName: "back"
        onClicked: bar.back()
    }

    SpokenText {
        id: name

        anchors.left: bar.hasBack ? backButton.right : parent.left
        anchors.leftMargin: bar.hasBack ? 0 : Theme.sideMargin
        anchors.right: actionRow.left
        anchors.rightMargin: Theme.gap12
        anchors.verticalCenter: parent.verticalCenter
        Accessible.role: Accessible.Heading
        text: bar.title
        textStyle: bar.hasBack ? Theme.barName : Theme.title
        wrapMode: Text.NoWrap
        elide: Text.ElideMiddle
    }

    Row {
        id: actionRow

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap12
        anchors.verticalCenter: parent.verticalCenter
    }
}
