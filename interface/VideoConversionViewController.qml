// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// Where every conversion starts: three sources, and below them what happens next.
Screen {
    id: screen

    required property App.VideoConversionViewController controller

    Rectangle {
        id: strip

        width: parent.width
        height: visible ? Math.max(Theme.stripHeight, stripText.height + 2 * Theme.gap8) : 0
        visible: !screen.controller.stillConvertingView.isHidden
        color: Theme.accentSoft

        SpokenText {
            id: stripText

            anchors.left: parent.left
            anchors.leftMargin: Theme.sideMargin
            anchors.verticalCenter: parent.verticalCenter
            text: "Still converting"
            textStyle: Theme.note
            color: Theme.accent
        }
        ProgressBar {
            anchors.left: stripText.right
            anchors.leftMargin: Theme.gap16
            anchors.right: parent.right
            anchors.rightMargin: Theme.sideMargin
            anchors.verticalCenter: parent.verticalCenter
            label: "Still converting"
            indeterminate: true
        }
    }
    ScrollArea {
        anchors.top: strip.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        margin: Theme.sideMargin
        topPadding: Math.max(screen.controller.topConstraint.constant, Theme.gap12)
        bottomPadding: Theme.gap20
        spacing: Theme.showsRows ? Theme.rowGap : Theme.cardGap

        HeroCard {
            objectName: "photoLibrary"
            width: parent.width
            visible: !Theme.showsRows
            iconName: "photos"
            label: "Photo library"
            note: "Videos on this device"
            onClicked: screen.controller.localMediaFilesTapped()
        }
        Row {
            id: cards

            readonly property real wordsHeight: Math.max(files.implicitWordsHeight, webAddress.implicitWordsHeight)

            width: parent.width
            spacing: Theme.cardGap
            visible: !Theme.showsRows

            SourceCard {
                id: files

                objectName: "files"
                width: (parent.width - parent.spacing) / 2
                wordsHeight: cards.wordsHeight
                iconName: "files"
                label: "Files"
                note: "Any folder or drive"
                tint: Theme.steel
                tileColor: Theme.steelSoft
                onClicked: screen.controller.importFromFilesTapped()
            }
            SourceCard {
                id: webAddress

                objectName: "webAddress"
                width: (parent.width - parent.spacing) / 2
                wordsHeight: cards.wordsHeight
                iconName: "link"
                label: "Web address"
                note: "Direct video link"
                tint: Theme.plum
                tileColor: Theme.plumSoft
                onClicked: screen.controller.videoURLTapped()
            }
        }
        SourceRow {
            objectName: "photoLibrary"
            width: parent.width
            visible: Theme.showsRows
            isHero: true
            iconName: "photos"
            label: "Photo library"
            note: "Videos on this device"
            onClicked: screen.controller.localMediaFilesTapped()
        }
        SourceRow {
            objectName: "files"
            width: parent.width
            visible: Theme.showsRows
            iconName: "files"
            label: "Files"
            note: "Any folder or drive"
            tint: Theme.steel
            tileColor: Theme.steelSoft
            onClicked: screen.controller.importFromFilesTapped()
        }
        SourceRow {
            objectName: "webAddress"
            width: parent.width
            visible: Theme.showsRows
            iconName: "link"
            label: "Web address"
            note: "Direct video link"
            tint: Theme.plum
            tileColor: Theme.plumSoft
            onClicked: screen.controller.videoURLTapped()
        }
        SpokenText {
            width: parent.width
            topPadding: Theme.gap16
            visible: Theme.isTall && !Theme.showsRows
            text: "What happens next"
            textStyle: Theme.heading
            Accessible.role: Accessible.Heading
        }
        Group {
            width: parent.width
            visible: Theme.isTall && !Theme.showsRows

            StepRow {
                width: parent.width
                iconName: "pen"
                label: "Name it, choose a quality"
                note: "Estimated sizes are shown first"
            }
            StepRow {
                width: parent.width
                hasLine: true
                iconName: "shield"
                label: "Converted on this device"
                note: "Videos are never uploaded"
            }
            StepRow {
                width: parent.width
                hasLine: true
                iconName: "share"
                label: "Share it or keep it"
                note: "Finished files wait in Converted Videos"
            }
        }
        Row {
            id: promise

            width: parent.width
            spacing: Theme.gap8
            topPadding: Theme.gap8
            visible: !Theme.isCompact && (!Theme.isTall || Theme.isLargeText)

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                anchors.verticalCenterOffset: promise.topPadding / 2
                name: "shield"
                color: Theme.accent
                size: Theme.rowIcon
            }
            SpokenText {
                width: promise.width - x
                text: "Converted on this device, never uploaded"
                textStyle: Theme.note
                color: Theme.inkSoft
            }
        }
    }
}
