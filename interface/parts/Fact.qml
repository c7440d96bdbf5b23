// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A `value` under its `caption`; it shrinks to fit.
Column {
    property string caption
    property string value

    SpokenText {
        width: parent.width
        text: parent.caption
        textStyle: Theme.caption
        color: Theme.inkSoft
    }
    SpokenText {
        width: parent.width
        text: parent.value
        textStyle: Theme.value
        wrapMode: Text.NoWrap
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Theme.caption.size
        font.preferShaping: false
    }
}
