// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// What can be done with a video of the library.
BottomSheet {
    id: sheet

    required property App.VideoOptionsViewController controller

    label: controller.titleLabel.text
    dissolves: true
    bottomPadding: Theme.gap12
    onDimTapped: controller.requestDismiss()

    header: SheetHeader {
        width: parent.width
        source: sheet.controller.thumbImageView
        title: sheet.controller.titleLabel.text
        onClosed: sheet.controller.requestDismiss()
    }

    ActionRow {
        objectName: "play"
        width: parent.width
        focus: true
        leastHeight: Theme.optionRow
        iconName: "play"
        label: "Play"
        onClicked: sheet.controller.playTapped()
    }
    ActionRow {
        objectName: "share"
        width: parent.width
        leastHeight: Theme.optionRow
        iconName: "share"
        label: "Share"
        onClicked: sheet.controller.shareTapped()
    }
    Item {
        width: parent.width
        height: 2 * Theme.gap8 + Theme.hair

        Rectangle {
            anchors.centerIn: parent
            width: parent.width + 2 * Theme.sheetPadding
            height: Theme.hair
            color: Theme.line
        }
    }
    ActionRow {
        objectName: "delete"
        width: parent.width
        isDestructive: true
        iconName: "trash"
        label: "Delete"
        note: "Right away. This cannot be undone."
        onClicked: sheet.controller.deleteTapped()
    }
}
