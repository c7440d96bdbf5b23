// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// What both layouts of the library show while it is empty, a little above the middle where there is room.
EmptyState {
    id: empty

    y: Math.max(0, (room - height) / 4, (room - height) / 2 - Theme.gap48)
    title: "No videos yet"
    message: "Everything you convert is kept here, ready to play and share."

    Icon {
        anchors.verticalCenter: parent.verticalCenter
        name: "convert"
        color: Theme.inkSoft
        size: Theme.rowIcon
    }
    Flow {
        // In two lines where there is no room for one.
        width: Math.min(start.implicitWidth + place.implicitWidth,
                        empty.width - 2 * Theme.gap32 - Theme.rowIcon - Theme.iconTextGap)
        Accessible.role: Accessible.StaticText
        Accessible.name: "Start with Convert to MP4"

        StyledText {
            id: start

            text: "Start with "
            color: Theme.inkSoft
        }
        StyledText {
            id: place

            text: "Convert to MP4"
            textStyle: Theme.strong
        }
    }
}
