// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The share sheet: a file, and what can be done with it. It comes from below, or stands as a popover near what it was
/// asked for from.
Overlay {
    id: sheet

    required property App.UIActivityViewController controller
    readonly property rect anchorRect: controller.popoverAnchor

    label: "Share"
    appearDuration: controller.isPopover ? Theme.menu : Theme.sheetUp
    disappearDuration: controller.isPopover ? Theme.menu : Theme.sheetDown
    onDimTapped: controller.cancelTapped()

    Panel {
        id: panel

        readonly property real lowest: sheet.height - Theme.sheetMargin - height
        readonly property real besideAnchor: Math.min(lowest, sheet.anchorRect.y + sheet.anchorRect.height)

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.horizontalCenterOffset: sheet.controller.isPopover ? offsetToAnchor : 0
        width: sheet.controller.isPopover ? Theme.popoverWidth : parent.width - 2 * Theme.sheetMargin
        y: sheet.controller.isPopover ? besideAnchor : lowest + (1 - sheet.arrival) * hiddenBy
        height: implicitHeight
        bottomPadding: Theme.gap12
        opacity: sheet.controller.isPopover ? sheet.presence : 1
        tallest: sheet.height - 2 * Theme.overlayMargin
        radius: sheet.controller.isPopover ? Theme.cardRadius : Theme.sheetRadius
        border.width: Theme.hair
        border.color: Theme.cardLine

        readonly property real hiddenBy: height + Theme.sheetMargin
        readonly property real farthest: Math.max(0, (sheet.width - width) / 2 - Theme.sheetMargin)
        readonly property real offsetToAnchor: Math.max(-farthest, Math.min(farthest,
            sheet.anchorRect.x + sheet.anchorRect.width / 2 - (parent?.width ?? 0) / 2))

        header: SheetHeader {
            width: parent?.width ?? 0
            source: sheet.controller.thumbnailImageView
            title: sheet.controller.nameLabel.text
            note: sheet.controller.detailLabel.text
            onClosed: sheet.controller.cancelTapped()
        }

        Rectangle {
            x: -panel.padding
            width: (parent?.width ?? 0) + 2 * panel.padding
            height: Theme.hair
            color: Theme.line
        }
        Item {
            width: 1
            height: Theme.gap8
        }
        Repeater {
            model: sheet.controller.entries

            // qmllint disable unqualified
            delegate: ActionRow {
                required property int index
                required property var modelData

                objectName: modelData.title
                width: parent?.width ?? 0
                iconName: modelData.icon
                label: modelData.title
                isEnabled: !sheet.controller.isActing
                onClicked: sheet.controller.perform(index)
            }
            // qmllint enable unqualified
        }
    }
}
