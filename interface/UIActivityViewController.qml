// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The share sheet: a file, and what can be done with it.
BottomSheet {
    id: sheet

    required property App.UIActivityViewController controller

    label: "Share"
    onDimTapped: controller.cancelTapped()

    header: SheetHeader {
        width: parent?.width ?? 0
        source: sheet.controller.thumbnailImageView
        title: sheet.controller.nameLabel.text
        note: sheet.controller.detailLabel.text
        onClosed: sheet.controller.cancelTapped()
    }

    Repeater {
        model: sheet.controller.entries

        delegate: ActionRow {
            required property int index
            required property var modelData

            objectName: modelData.title
            width: parent?.width ?? 0
            iconName: modelData.icon
            label: modelData.title
            isEnabled: !sheet.controller.isActing
            hasFullLine: index === 0
            onClicked: sheet.controller.perform(index)
        }
    }
}
