// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

// Every icon in three sizes.
Rectangle {
    id: page

    readonly property var names: ["convert", "converted", "settings", "photos", "files", "link", "share", "play",
        "playMark", "trash", "close", "closeBold", "back", "chevron", "arrow", "external", "pen", "shield", "mail",
        "apps", "save", "download", "copy", "paste", "chart", "warning", "turn", "sound", "muted", "pause",
        "starDeselected", "starSelected", "spinner"]

    color: Theme.surface

    Grid {
        columns: 4
        padding: 8
        spacing: 4

        Repeater {
            model: page.names

            Row {
                id: sizes

                required property string modelData

                Icon {
                    name: sizes.modelData
                    size: 18
                }
                Icon {
                    name: sizes.modelData
                    size: 24
                }
                Icon {
                    name: sizes.modelData
                    size: 48
                }
            }
        }
    }
}
