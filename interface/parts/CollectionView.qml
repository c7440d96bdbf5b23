// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// Shows the cells of `view`, a controller's outlet, each with the interface file of its class, and scrolls them;
/// `label` is what it is called for those who hear it. Arrows, Return and the menu key work in it. Its children lie
/// among the cells and scroll along.
Flickable {
    id: area

    required property App.CellsView view
    property string label
    readonly property rect currentFrame: view.currentFrame

    contentWidth: width
    contentHeight: view.contentHeight
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: label
    Component.onCompleted: view.setViewport(contentY, width, height)
    onContentYChanged: view.setViewport(contentY, width, height)
    onWidthChanged: view.setViewport(contentY, width, height)
    onHeightChanged: view.setViewport(contentY, width, height)
    onActiveFocusChanged: {
        view.setFocused(activeFocus);
        if (activeFocus && App.Appearance.isByKey)
            view.enterByKey();
    }
    onCurrentFrameChanged: contentY = view.topShowingCurrent()
    Keys.onMenuPressed: event => event.accepted = view.openCurrentMenu(contentItem.mapToItem(null, 0, 0))
    Keys.onPressed: event => event.accepted = view.pressKey(event.key)

    Repeater {
        model: area.view.cells

        delegate: Loader {
            id: loader

            required property App.ReusableCell cell

            x: cell.frame.x
            y: cell.frame.y
            width: cell.frame.width
            height: cell.frame.height
            visible: cell.isShown
            Component.onCompleted: setSource(`../Screens/${cell.interfaceName}.qml`, {
                cell: cell
            })

            TapHandler {
                acceptedButtons: Qt.RightButton
                // qmllint disable unqualified
                onTapped: loader.cell.openMenu(area.contentItem.mapToItem(null, 0, 0))
                // qmllint enable unqualified
            }
        }
    }
}
