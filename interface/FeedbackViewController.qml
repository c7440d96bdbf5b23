// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// How the user likes the application, in stars.
Screen {
    id: screen

    required property App.FeedbackViewController controller

    isPresented: true

    ScrollArea {
        anchors.top: closeButton.bottom
        anchors.bottom: sendButton.top
        width: parent.width
        margin: Theme.gap24
        topPadding: Math.max(0, Theme.shareAbove * (height - words.implicitHeight))

        Column {
            id: words

            width: parent.width
            bottomPadding: Theme.gap12

            ApplicationIcon {
                anchors.horizontalCenter: parent.horizontalCenter
                size: Theme.feedbackIcon
            }
            SpokenText {
                width: parent.width
                topPadding: Theme.gap24
                horizontalAlignment: Text.AlignHCenter
                text: "How do you like Reelsmith?"
                textStyle: Theme.title
                Accessible.role: Accessible.Heading
            }
            SpokenText {
                width: parent.width
                topPadding: Theme.gap8
                bottomPadding: Theme.gap32
                horizontalAlignment: Text.AlignHCenter
                text: "Tap a star. Five is best."
                color: Theme.inkSoft
            }
            Loader {
                anchors.horizontalCenter: parent.horizontalCenter
                Component.onCompleted: setSource(`${screen.controller.starEvaluationView.view.interfaceName}.qml`, {
                    view: screen.controller.starEvaluationView
                })
            }
        }
    }
    CloseButton {
        id: closeButton

        objectName: "close"
        x: parent.width - width - Theme.closeMargin
        y: Theme.closeMargin
        onClicked: screen.controller.closeTapped()
    }
    Button {
        id: sendButton

        objectName: "send"
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap32
        x: Theme.gap24
        width: parent.width - 2 * x
        label: screen.controller.sendButton.title
        radius: screen.controller.sendButton.cornerRadius
        isEnabled: screen.controller.sendButton.isEnabled
        opacity: screen.controller.sendButton.alpha
        onClicked: screen.controller.sendTapped()
    }
}
