// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

Convert {
    CenterCard {
        anchors.fill: parent
        padding: Theme.sheetPadding
        focus: true
        header: Row {
            spacing: Theme.iconTextGap

            IconTile {
                iconName: "link"
                tint: Theme.plum
                color: Theme.plumSoft
            }
            Column {
                StyledText {
                    text: "Video from the web"
                    textStyle: Theme.heading
                }
                StyledText {
                    text: "Paste a direct link to a video file"
                    textStyle: Theme.note
                    color: Theme.inkSoft
                }
            }
        }
        spacing: Theme.gap8

        TextField {
            width: parent.width
            label: "Web address"
            text: "https://clips.example/run.mov"
            offersPaste: true
            focus: true
        }
        StyledText {
            width: parent.width
            text: "AVI, MOV, MP4, MKV or HEVC"
            textStyle: Theme.smallNote
            color: Theme.inkSoft
        }
        footer: ButtonPair {
            id: buttons

            width: parent.width

            Button {
                width: buttons.narrowWidth
                label: "Cancel"
                kind: Button.Secondary
                leastHeight: Theme.buttonInCard
            }
            Button {
                width: buttons.wideWidth
                label: "Download"
                iconName: "download"
                leastHeight: Theme.buttonInCard
            }
        }
    }
}
