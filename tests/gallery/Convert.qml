// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

// The controls of the first tab.
Rectangle {
    color: Theme.backdrop

    Screen {
        id: screen

        anchors.horizontalCenter: parent.horizontalCenter
        width: Theme.columnWidth
        height: parent.height

        ScrollArea {
            anchors.fill: parent
            anchors.topMargin: bar.height
            anchors.bottomMargin: tabs.height
            margin: Theme.sideMargin
            topPadding: Theme.showsRows ? Theme.cardGap : Theme.sideMargin
            bottomPadding: Theme.gap20
            spacing: Theme.showsRows ? Theme.rowGap : Theme.cardGap

            HeroCard {
                width: parent.width
                visible: !Theme.showsRows
                iconName: "photos"
                label: "Photo library"
                note: "Videos on this device"
            }
            Row {
                id: cards

                width: parent.width
                spacing: Theme.cardGap
                visible: !Theme.showsRows

                SourceCard {
                    width: (cards.width - cards.spacing) / 2
                    iconName: "files"
                    label: "Files"
                    note: "Any folder or drive"
                    tint: Theme.steel
                    tileColor: Theme.steelSoft
                }
                SourceCard {
                    width: (cards.width - cards.spacing) / 2
                    iconName: "link"
                    label: "Web address"
                    note: "Direct video link"
                    tint: Theme.plum
                    tileColor: Theme.plumSoft
                }
            }
            SourceRow {
                width: parent.width
                visible: Theme.showsRows
                isHero: true
                iconName: "photos"
                label: "Photo library"
                note: "Videos on this device"
            }
            SourceRow {
                width: parent.width
                visible: Theme.showsRows
                iconName: "files"
                label: "Files"
                note: "Any folder or drive"
                tint: Theme.steel
                tileColor: Theme.steelSoft
            }
            SourceRow {
                width: parent.width
                visible: Theme.showsRows
                iconName: "link"
                label: "Web address"
                note: "Direct video link"
                tint: Theme.plum
                tileColor: Theme.plumSoft
            }
            StyledText {
                visible: Theme.isTall
                topPadding: Theme.gap16
                text: "What happens next"
                textStyle: Theme.heading
            }
            Group {
                width: parent.width
                visible: Theme.isTall

                ActionRow {
                    width: parent.width
                    isInformation: true
                    margin: Theme.cardPadding
                    tileSize: Theme.rowIconTile
                    tileColor: "transparent"
                    tint: Theme.accent
                    titleStyle: Theme.strong
                    iconName: "pen"
                    label: "Name it, choose a quality"
                    note: "Estimated sizes are shown first"
                }
                ActionRow {
                    width: parent.width
                    isInformation: true
                    hasLine: true
                    margin: Theme.cardPadding
                    tileSize: Theme.rowIconTile
                    tileColor: "transparent"
                    tint: Theme.accent
                    titleStyle: Theme.strong
                    iconName: "shield"
                    label: "Converted on this device"
                    note: "Videos are never uploaded"
                }
                ActionRow {
                    width: parent.width
                    isInformation: true
                    hasLine: true
                    margin: Theme.cardPadding
                    tileSize: Theme.rowIconTile
                    tileColor: "transparent"
                    tint: Theme.accent
                    titleStyle: Theme.strong
                    iconName: "share"
                    label: "Share it or keep it"
                    note: "Finished files wait in Converted Videos"
                }
            }
        }
        NavigationBar {
            id: bar

            width: parent.width
            title: "Convert to MP4"
        }
        Bar {
            id: tabs

            anchors.bottom: parent.bottom
            width: parent.width
            isAtBottom: true
            implicitHeight: first.implicitHeight

            Row {
                TabButton {
                    id: first

                    width: tabs.width / 3
                    iconName: "convert"
                    label: "Convert to MP4"
                    isSelected: true
                }
                TabButton {
                    width: tabs.width / 3
                    iconName: "converted"
                    label: "Converted Videos"
                }
                TabButton {
                    width: tabs.width / 3
                    iconName: "settings"
                    label: "Settings"
                }
            }
        }
    }
}
