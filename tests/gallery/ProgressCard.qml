// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

Convert {
    CenterCard {
        anchors.fill: parent
        sideMargin: 36
        header: Row {
            spacing: Theme.iconTextGap

            Picture {
                width: 52
                height: 52
            }
            Column {
                StyledText {
                    text: "Converting"
                    textStyle: Theme.heading
                }
                StyledText {
                    text: "Familienfest 60.mp4"
                    textStyle: Theme.note
                    color: Theme.inkSoft
                }
            }
        }
        spacing: Theme.gap8

        Item {
            width: parent.width
            height: percentage.height

            SteadyDigits {
                id: percentage

                text: "42%"
                textStyle: Theme.display
            }
            SteadyDigits {
                anchors.right: parent.right
                anchors.bottom: parent.bottom
                anchors.bottomMargin: Theme.gap4
                text: "about 1 min left"
                textStyle: Theme.note
                color: Theme.inkSoft
            }
        }
        ProgressBar {
            width: parent.width
            value: 0.42
            label: "Progress"
        }
        footer: Button {
            width: parent.width
            label: "Cancel"
            kind: Button.Secondary
            leastHeight: Theme.buttonInCard
        }
    }
}
