// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

Convert {
    BottomSheet {
        anchors.fill: parent
        gap: Theme.gap20
        header: SheetHeader {
            width: parent.width
            pictureSize: 76
            title: "Familienfest 60. Geburtstag Oma Ingrid – alle Reden ungekürzt.mov"
            note: "03:12 · 3,840x2,160 · 1.24 GB"
        }
        spacing: Theme.gap8

        StyledText {
            text: "Name"
            textStyle: Theme.caption
            color: Theme.inkSoft
        }
        TextField {
            width: parent.width
            text: "Familienfest 60"
            suffix: ".mp4"
            label: "Name"
        }
        StyledText {
            text: "Replaces the video that has this name now"
            textStyle: Theme.smallNote
            color: Theme.warn
        }
        StyledText {
            text: "Quality"
            textStyle: Theme.caption
            color: Theme.inkSoft
        }
        Segments {
            width: parent.width
            label: "Quality"
            segments: [
                {
                    "title": "Low",
                    "note": "≈ 38 MB"
                },
                {
                    "title": "Medium",
                    "note": "≈ 142 MB"
                },
                {
                    "title": "High",
                    "note": "≈ 560 MB"
                }
            ]
        }
        StyledText {
            width: parent.width
            text: "Smallest file, fine for messages and old phones."
            textStyle: Theme.note
            color: Theme.inkSoft
        }
        footer: Button {
            width: parent.width
            label: "Convert"
        }
    }
}
