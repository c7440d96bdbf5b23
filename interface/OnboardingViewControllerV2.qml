// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// What the application does, page by page, over a video.
Screen {
    id: screen

    required property App.OnboardingViewControllerV2 controller

    fillsWindow: true
    ground: Theme.videoGround

    App.PlayerLayerItem {
        anchors.fill: parent
        visible: !screen.controller.backgroundImageView.isHidden
        playerLayer: screen.controller.playerLayer
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Math.min(parent.height, Math.max(Theme.introScrimHeight, (texts.height + texts.anchors.bottomMargin) / Theme.introTextShare))
        visible: !screen.controller.overlayView.isHidden
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.introScrimBegin
            }
            GradientStop {
                position: Theme.introScrimRest
                color: Theme.introScrimMiddle
            }
            GradientStop {
                position: 1
                color: Theme.introScrimEnd
            }
        }
    }
    Column {
        id: texts

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap32
        width: Math.min(parent.width, Theme.columnWidth) - 2 * Theme.gap24
        spacing: Theme.gap24

        Column {
            width: parent.width
            spacing: Theme.gap12

            DissolvingText {
                width: parent.width
                text: screen.controller.titleLabel.text
                textStyle: Theme.introTitle
                color: Theme.pictureInk
                Accessible.role: Accessible.Heading
            }
            DissolvingText {
                width: parent.width
                text: screen.controller.descriptionLabel.text
                color: Theme.introText
            }
        }
        PageMarks {
            count: screen.controller.pageCount
            current: screen.controller.currentPage
        }
        Button {
            id: continueButton

            objectName: "continue"
            width: parent.width
            kind: Button.OnPicture
            ring: Theme.pictureInk
            label: screen.controller.continueButton.title
            Dissolve on label {
                item: continueButton.contentItem
            }
            isEnabled: screen.controller.continueButton.isEnabled
            onClicked: screen.controller.continueTapped()
        }
    }
}
