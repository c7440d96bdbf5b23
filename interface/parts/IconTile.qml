// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// An icon on a rounded square, as it stands in cards and rows: `iconName` in `tint` on `color`.
Rectangle {
    id: tile

    property string iconName
    property color tint: Theme.accent
    property real size: Theme.iconTile
    property real iconSize: Theme.icon

    width: size
    height: size
    implicitWidth: size
    implicitHeight: size
    radius: size < Theme.sheetIconTile ? Theme.rowTileRadius : Theme.tileRadius
    color: Theme.accentSoft

    Icon {
        anchors.centerIn: parent
        name: tile.iconName
        color: tile.tint
        size: tile.iconSize
    }
}
