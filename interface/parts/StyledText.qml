// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A text in one of the theme's styles: `textStyle`. It wraps and its height follows.
Text {
    id: words

    property TextStyle textStyle: Theme.body

    font.pixelSize: textStyle.scaledSize
    font.weight: textStyle.weight
    font.letterSpacing: textStyle.tracking
    lineHeight: textStyle.scaledLine
    lineHeightMode: Text.FixedHeight
    color: Theme.ink
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    transform: Translate {
        y: words.textStyle.above
    }
}
