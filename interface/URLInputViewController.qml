// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// Asks for the web address of a video.
CenterCard {
    id: card

    required property App.URLInputViewController controller

    label: "Video from the web"
    padding: Theme.sheetPadding
    onDimTapped: controller.requestDismiss()

    header: Row {
        width: parent.width
        spacing: Theme.iconTextGap

        IconTile {
            id: tile

            iconName: "link"
            tint: Theme.plum
            color: Theme.plumSoft
        }
        Column {
            width: parent.width - tile.width - parent.spacing
            anchors.verticalCenter: parent.verticalCenter

            StyledText {
                width: parent.width
                text: card.label
                textStyle: Theme.heading
            }
            SpokenText {
                width: parent.width
                text: "Paste a direct link to a video file"
                textStyle: Theme.note
                color: Theme.inkSoft
            }
        }
    }

    TextField {
        objectName: "address"
        width: parent.width
        focus: true
        label: "Web address of a video"
        placeholderText: "https://…/video.mp4"
        offersPaste: true
        inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
        text: card.controller.textField.text
        onTextChanged: card.controller.textField.text = text
        onAccepted: card.controller.downloadTapped()
    }
    SpokenText {
        width: parent.width
        leftPadding: Theme.hair * 2
        topPadding: Theme.gap8
        text: "AVI, MOV, MP4, MKV or HEVC"
        textStyle: Theme.smallNote
        color: Theme.inkSoft
    }
    footer: ButtonPair {
        width: parent.width

        Button {
            objectName: "cancel"
            width: parent.narrowWidth
            kind: Button.Secondary
            leastHeight: Theme.buttonInCard
            label: "Cancel"
            onClicked: card.controller.cancelTapped()
        }
        Button {
            objectName: "download"
            width: parent.wideWidth
            leastHeight: Theme.buttonInCard
            label: "Download"
            iconName: "download"
            onClicked: card.controller.downloadTapped()
        }
    }
}
