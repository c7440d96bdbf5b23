// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A text that dissolves into the next one.
SpokenText {
    id: words

    Behavior on text {
        SequentialAnimation {
            NumberAnimation {
                target: words
                property: "opacity"
                to: 0
                duration: Theme.introTexts / 2
            }
            PropertyAction {}
            NumberAnimation {
                target: words
                property: "opacity"
                to: 1
                duration: Theme.introTexts / 2
            }
        }
    }
}
