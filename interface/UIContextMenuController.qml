// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The menu of one cell, with the cell lifted beside it.
ContextMenu {
    id: menu

    required property App.UIContextMenuController controller
    readonly property rect cellFrame: controller.cellFrame

    label: controller.title
    anchorRect: Qt.rect(cellFrame.x - (width - Math.min(width, Theme.columnWidth)) / 2, cellFrame.y, cellFrame.width,
        cellFrame.height)
    actions: controller.actions
    onChosen: index => controller.press(index)
    onDimTapped: controller.goBack()

    Loader {
        anchors.fill: parent
        enabled: false
        Component.onCompleted: setSource(`${menu.controller.cell.interfaceName}.qml`, {
            cell: menu.controller.cell
        })
    }
}
