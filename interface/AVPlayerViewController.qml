// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// A video on all of the window, and the controls over it.
Screen {
    id: screen

    required property App.AVPlayerViewController controller

    isPresented: true
    fillsWindow: true
    ground: Theme.videoGround
    Keys.onPressed: event => event.accepted = screen.controller.keyPressed(event.key)

    TurningStage {
        id: stage

        readonly property bool isLow: width > height

        App.PlayerLayerItem {
            anchors.fill: parent
            playerLayer: screen.controller.playerLayer
        }
        MouseArea {
            anchors.fill: parent
            // Controls that are not seen are not pressed, except by those who hear them.
            z: controls.isShown ? 0 : 1
            onClicked: screen.controller.pictureTapped()
            Accessible.role: Accessible.Button
            Accessible.name: "Video"
            Accessible.onPressAction: screen.controller.pictureTapped()
        }
        Column {
            anchors.centerIn: parent
            width: Math.min(parent.width, Theme.columnWidth) - 2 * Theme.gap24
            spacing: Theme.gap12
            visible: !screen.controller.canPlay

            Icon {
                anchors.horizontalCenter: parent.horizontalCenter
                name: "converted"
                color: Theme.playerNote
                size: Theme.playerMark
            }
            SpokenText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: "This video cannot be played"
                textStyle: Theme.heading
                color: Theme.pictureInk
                Accessible.role: Accessible.Heading
            }
            SpokenText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: screen.controller.errorLabel.text
                textStyle: Theme.message
                color: Theme.playerNote
            }
        }
        FocusScope {
            id: controls

            // What the keyboard is on does not vanish.
            readonly property bool isShown: !screen.controller.controlsView.isHidden || activeFocus

            anchors.fill: parent
            opacity: isShown ? 1 : 0

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.picture
                }
            }

            Scrim {
                reach: close.y + close.height
            }
            Scrim {
                anchors.bottom: parent.bottom
                isBelow: true
                reach: bottom.height + bottom.anchors.bottomMargin
                visible: screen.controller.canPlay
            }
            IconButton {
                id: close

                x: Theme.playerMargin
                y: Theme.playerMargin
                iconName: "close"
                tint: Theme.pictureInk
                ring: Theme.pictureInk
                label: "Close"
                onClicked: screen.controller.closeTapped()
            }
            SpokenText {
                anchors.left: close.right
                anchors.right: turn.left
                anchors.verticalCenter: close.verticalCenter
                anchors.margins: Theme.gap8
                horizontalAlignment: Text.AlignHCenter
                text: screen.controller.nameLabel.text
                textStyle: Theme.strong
                color: Theme.pictureInk
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
            }
            IconButton {
                id: turn

                anchors.right: parent.right
                anchors.rightMargin: Theme.playerMargin
                y: Theme.playerMargin
                iconName: "turn"
                tint: Theme.pictureInk
                ring: Theme.pictureInk
                label: "Turn"
                onClicked: screen.controller.turnTapped()
            }
            PlaybackButton {
                anchors.centerIn: parent
                visible: screen.controller.canPlay
                isPlaying: screen.controller.isPlaying
                onClicked: screen.controller.playPauseTapped()
            }
            Column {
                id: bottom

                anchors.bottom: parent.bottom
                anchors.bottomMargin: stage.isLow ? Theme.playerBottomLow : Theme.playerBottom
                width: parent.width
                visible: screen.controller.canPlay

                SeekBar {
                    width: parent.width
                    label: "Position"
                    isEnabled: screen.controller.positionSlider.isEnabled
                    to: screen.controller.positionSlider.maximumValue
                    value: screen.controller.positionSlider.value
                    onPressedChanged: screen.controller.scrubbingChanged(pressed)
                    onValueChanged: screen.controller.positionMoved(value)
                }
                Item {
                    width: parent.width
                    height: Theme.target

                    Row {
                        anchors.verticalCenter: parent.verticalCenter
                        x: Theme.sideMargin

                        SteadyDigits {
                            text: screen.controller.positionLabel.text
                            textStyle: Theme.note
                            color: Theme.pictureInk
                        }
                        SteadyDigits {
                            text: " / " + screen.controller.durationLabel.text
                            textStyle: Theme.note
                            color: Theme.playerNote
                        }
                    }
                    IconButton {
                        anchors.right: parent.right
                        anchors.rightMargin: Theme.playerMargin
                        visible: !screen.controller.soundButton.isHidden
                        iconName: screen.controller.isMuted ? "muted" : "sound"
                        tint: Theme.pictureInk
                        ring: Theme.pictureInk
                        label: screen.controller.isMuted ? "Unmute" : "Mute"
                        onClicked: screen.controller.soundTapped()
                    }
                }
            }
        }
    }
}
