// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A short text whose digits change: `text` in `textStyle` and `color`, every digit as wide as the widest, so that
/// nothing dances.
Row {
    id: digits

    property string text
    property TextStyle textStyle: Theme.body
    property color color: Theme.ink

    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text === ""

    FontMetrics {
        id: metrics

        // Naming the font has it measured again when that changes.
        readonly property real widest: font.pixelSize > 0 ? Math.max(advanceWidth("0"), advanceWidth("2"), advanceWidth("4"),
                                                                     advanceWidth("6"), advanceWidth("8")) : 0

        font.pixelSize: digits.textStyle.scaledSize
        font.weight: digits.textStyle.weight
        font.letterSpacing: digits.textStyle.tracking
    }

    Repeater {
        model: digits.text.length

        // qmllint disable unqualified
        StyledText {
            required property int index

            Accessible.ignored: true
            width: text >= "0" && text <= "9" ? metrics.widest : implicitWidth
            horizontalAlignment: Text.AlignHCenter
            text: digits.text[index] ?? ""
            textStyle: digits.textStyle
            color: digits.color
        }
        // qmllint enable unqualified
    }
}
