// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Which of `count` pages the user is on: `current`, from 0. Not for pressing.
Row {
    id: marks

    property int count: 0
    property int current: 0

    spacing: Theme.gap8
    Accessible.role: Accessible.StaticText
    Accessible.name: "Page " + (Math.min(current, count - 1) + 1) + " of " + count

    Repeater {
        model: marks.count

        // qmllint disable unqualified
        Rectangle {
            required property int index

            readonly property bool isCurrent: index === Math.min(marks.current, marks.count - 1)

            width: isCurrent ? Theme.pageMarkLong : Theme.pageMark
            height: Theme.pageMark
            radius: Theme.pageMark / 2
            color: isCurrent ? Theme.pictureInk : Theme.pageMarkRest

            Behavior on width {
                NumberAnimation {
                    duration: Theme.introTexts
                    easing.type: Easing.OutCubic
                }
            }
        }
        // qmllint enable unqualified
    }
}
