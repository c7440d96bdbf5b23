// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The menu of one cell, with the cell lifted beside it.
ContextMenu {
    id: menu

    required property App.UIContextMenuController controller

    label: controller.title
    anchorRect: controller.cellFrame
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
