// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// How far a download or a conversion has come.
CenterCard {
    id: card

    required property App.ProgressViewController controller

    label: controller.titleLabel.text
    sideMargin: Theme.progressMargin
    gap: Theme.gap24

    header: Row {
        width: parent.width
        spacing: Theme.iconTextGap

        Picture {
            id: picture

            width: Theme.progressPicture
            height: Theme.progressPicture
            source: card.controller.thumbImageView
        }
        Column {
            width: parent.width - picture.width - parent.spacing
            anchors.verticalCenter: parent.verticalCenter

            StyledText {
                width: parent.width
                text: card.controller.titleLabel.text
                textStyle: Theme.heading
                wrapMode: Text.NoWrap
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.note.size
            }
            SpokenText {
                width: parent.width
                text: card.controller.fileNameLabel.text
                textStyle: Theme.note
                color: Theme.inkSoft
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
            }
        }
    }

    ProgressFigures {
        objectName: "percentage"
        width: parent.width
        figure: card.controller.progressLabel.text
        note: card.controller.remainingLabel.text
    }
    Item {
        width: parent.width
        height: Theme.gap12
    }
    ProgressBar {
        width: parent.width
        label: card.controller.titleLabel.text
        value: card.controller.progressVIew.progress
        indeterminate: card.controller.progressVIew.isIndeterminate
    }
    footer: Button {
        objectName: "cancel"
        width: parent.width
        focus: true
        kind: Button.Secondary
        leastHeight: Theme.buttonInCard
        label: "Cancel"
        onClicked: card.controller.cancelTapped()
    }
}
