// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Lets what `item` shows of a property dissolve into the next value: "Dissolve on text { item: words }".
Behavior {
    id: dissolve

    required property Item item

    SequentialAnimation {
        NumberAnimation {
            target: dissolve.item
            property: "opacity"
            to: 0
            duration: Theme.introTexts / 2
        }
        PropertyAction {}
        NumberAnimation {
            target: dissolve.item
            property: "opacity"
            to: 1
            duration: Theme.introTexts / 2
        }
    }
}
