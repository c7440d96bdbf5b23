// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// What both layouts of the library show while it is empty.
EmptyState {
    title: "No videos yet"
    message: "Everything you convert is kept here, ready to play and share."

    Icon {
        anchors.verticalCenter: parent.verticalCenter
        name: "convert"
        color: Theme.inkSoft
        size: Theme.rowIcon
    }
    Row {
        Accessible.role: Accessible.StaticText
        Accessible.name: "Start with Convert to MP4"

        StyledText {
            text: "Start with "
            color: Theme.inkSoft
        }
        StyledText {
            text: "Convert to MP4"
            textStyle: Theme.strong
        }
    }
}
