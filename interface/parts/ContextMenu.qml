// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A menu for one thing on the screen, which stands at `anchorRect` of the window: `actions` (each with a "title", an
/// "image" and whether it "isDestructive") below it, or above or else beside it where there is no room. `chosen` tells
/// the index. Its children are shown lifted in the place of that thing.
Overlay {
    id: overlay

    property rect anchorRect
    property var actions: []
    default property alias lifted: lift.data

    readonly property real anchorRight: anchorRect.x + anchorRect.width - columnLeft
    readonly property real anchorBottom: anchorRect.y + anchorRect.height
    readonly property bool isBelow: anchorBottom + Theme.gap24 + menu.height <= height - Theme.overlayMargin
    readonly property bool isAbove: !isBelow && anchorRect.y - Theme.gap24 - menu.height >= Theme.overlayMargin
    readonly property bool isBeside: !isBelow && !isAbove
    readonly property bool isAtRight: anchorRight - menu.width >= Theme.sideMargin

    signal chosen(int index)

    dim: Theme.menuDim
    appearDuration: Theme.menu
    disappearDuration: Theme.menu
    Accessible.role: Accessible.PopupMenu

    Item {
        id: lift

        x: overlay.anchorRect.x - overlay.columnLeft
        y: overlay.anchorRect.y
        width: overlay.anchorRect.width
        height: overlay.anchorRect.height
        scale: 1 + (Theme.liftedScale - 1) * overlay.arrival
    }
    Rectangle {
        id: menu

        readonly property real besideX: overlay.isAtRight ? lift.x - Theme.gap24 - width
                                                          : overlay.anchorRight + Theme.gap24
        readonly property real edgeX: overlay.isAtRight ? overlay.anchorRight - width : Theme.sideMargin
        readonly property real wantedX: overlay.isBeside ? besideX : edgeX
        readonly property real wantedY: overlay.isBeside ? overlay.anchorRect.y
                                      : overlay.isAbove ? overlay.anchorRect.y - Theme.gap24 - height
                                                        : overlay.anchorBottom + Theme.gap24

        x: Math.max(Theme.sideMargin, Math.min(parent.width - Theme.sideMargin - width, wantedX))
        y: Math.max(Theme.overlayMargin, Math.min(overlay.height - Theme.overlayMargin - height, wantedY))
        width: Theme.menuWidth
        height: rows.height
        radius: Theme.cardRadius
        color: Theme.surface
        border.width: Theme.hasCardLines ? Theme.hair : 0
        border.color: Theme.line
        opacity: overlay.presence
        scale: Theme.menuScale + (1 - Theme.menuScale) * overlay.arrival
        transformOrigin: overlay.isAbove ? (overlay.isAtRight ? Item.BottomRight : Item.BottomLeft)
                                         : (overlay.isAtRight ? Item.TopRight : Item.TopLeft)

        Shadow {
            shadow: Theme.sheetShadow
            radius: menu.radius
        }
        Column {
            id: rows

            width: parent.width

            Repeater {
                model: overlay.actions

                // qmllint disable unqualified
                MenuRow {
                    required property var modelData
                    required property int index

                    width: rows.width
                    focus: index === 0
                    label: modelData.title
                    iconName: modelData.image
                    isDestructive: modelData.isDestructive
                    hasLine: index > 0
                    onClicked: overlay.chosen(index)
                }
                // qmllint enable unqualified
            }
        }
    }
}
