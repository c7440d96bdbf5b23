// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// How many videos there are, and in what `order`; nothing where there are none.
SpokenText {
    required property int count
    property string order

    verticalAlignment: Text.AlignVCenter
    visible: count > 0
    text: (count === 1 ? "1 video" : count + " videos") + order
    textStyle: Theme.note
    color: Theme.inkSoft
}
