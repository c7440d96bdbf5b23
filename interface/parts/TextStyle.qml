// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// One kind of lettering: `size` and `line` in points as drawn at the usual text size, `scaled…` as they are shown.
/// `largest` caps how far the text size of the desktop is followed.
QtObject {
    id: style

    required property real size
    required property real line
    property int weight: 400
    property real tracking: 0
    property real largest: 1.5

    readonly property real scale: Math.min(App.Appearance.textScale, largest)
    readonly property int scaledSize: Math.round(size * scale)
    readonly property int scaledLine: Math.round(line * scale)

    // What a line is higher than its letters, half of which belongs above them.
    readonly property int above: Math.round((scaledLine - metrics.height) / 2)
    readonly property FontMetrics metrics: FontMetrics {
        font.pixelSize: style.scaledSize
        font.weight: style.weight
    }
}
