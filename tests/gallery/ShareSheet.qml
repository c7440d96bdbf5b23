// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

Convert {
    BottomSheet {
        anchors.fill: parent
        header: SheetHeader {
            width: parent.width
            pictureSize: 64
            title: "Familienfest 60.mp4"
            note: "03:12 · 37.6 MB"
        }

        ActionRow {
            width: parent.width
            iconName: "apps"
            label: "Open with another app"
        }
        ActionRow {
            width: parent.width
            iconName: "mail"
            label: "Send by mail"
        }
        ActionRow {
            width: parent.width
            iconName: "save"
            label: "Save a copy"
        }
        ActionRow {
            width: parent.width
            iconName: "copy"
            label: "Copy file"
        }
        ActionRow {
            width: parent.width
            hasFullLine: true
            isDestructive: true
            iconName: "trash"
            label: "Delete"
            note: "Right away. This cannot be undone."
        }
    }
}
