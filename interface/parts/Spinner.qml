// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Turns for as long as it is visible and `isRunning`, once that has lasted a moment.
Icon {
    id: spinner

    property bool isRunning: true

    name: "spinner"
    color: Theme.accent
    opacity: 0
    states: State {
        name: "running"
        when: spinner.isRunning

        PropertyChanges {
            spinner.opacity: 1
        }
    }
    transitions: Transition {
        to: "running"

        SequentialAnimation {
            PauseAnimation {
                duration: Theme.spinnerDelay
            }
            NumberAnimation {
                property: "opacity"
                duration: Theme.picture
            }
        }
    }

    RotationAnimation on rotation {
        running: spinner.isRunning && spinner.visible && Theme.spin > 0
        loops: Animation.Infinite
        from: 0
        to: 360
        duration: Theme.spin
    }
}
