// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

// What the other pages do not show.
Rectangle {
    color: Theme.canvas

    ScrollArea {
        anchors.fill: parent
        margin: Theme.sideMargin
        topPadding: Theme.gap16
        spacing: Theme.gap16

        NavigationBar {
            width: parent.width
            hasBack: true
            title: "drone-flight-over-the-lake-4k-60fps-final-v3"

            TextButton {
                label: "Cancel"
            }
        }
        Group {
            width: parent.width

            ActionRow {
                width: parent.width
                margin: Theme.cardPadding
                tileSize: Theme.rowIconTile
                iconName: "mail"
                tint: Theme.steel
                tileColor: Theme.steelSoft
                label: "Report a problem"
                note: "Write us a mail"
                endIcon: "chevron"
            }
            ActionRow {
                width: parent.width
                isInformation: true
                hasLine: true
                margin: Theme.cardPadding
                tileSize: Theme.rowIconTile
                iconName: "chart"
                tint: Theme.accent
                tileColor: Theme.accentSoft
                label: "Send usage data"

                Switch {
                    label: "Send usage data"
                    checked: true
                }
            }
        }
        Row {
            spacing: Theme.gap16

            Switch {
                label: "Off"
            }
            Spinner {}
            CloseButton {}
            IconButton {
                label: "Delete"
                iconName: "trash"
                tint: Theme.danger
            }
            TextButton {
                label: "See more"
            }
        }
        StarRow {
            value: 4
            label: "Rating"
        }
        ProgressBar {
            width: parent.width
            indeterminate: true
            label: "Working"
        }
        TextField {
            width: parent.width
            label: "Web address"
            placeholderText: "https://"
            offersPaste: true
        }
        Button {
            width: parent.width
            label: "Send"
            isEnabled: false
        }
        Row {
            spacing: Theme.gap12

            PictureTile {
                width: 163
                height: 163
                name: "Familienfest 60. Geburtstag Oma Ingrid"
            }
            OverlayTile {
                width: 175
                height: 175
                name: "IMG_20261108_174522_HDR.mp4"
            }
        }
        EmptyState {
            title: "No videos yet"
            message: "Everything you convert is kept here, ready to play and share."

            Icon {
                name: "convert"
                color: Theme.inkSoft
            }
            StyledText {
                text: "Start with Convert to MP4"
            }
        }
    }
}
