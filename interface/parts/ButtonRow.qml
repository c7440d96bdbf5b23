// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Two buttons side by side, the first of which takes `firstShare` of the width; below each other where the text is
/// large. Its children take `firstWidth` and `secondWidth`.
Grid {
    property real firstShare: 0.5
    property bool isStacked: Theme.isLargeText

    readonly property real firstWidth: isStacked ? width : (width - spacing) * firstShare
    readonly property real secondWidth: isStacked ? width : (width - spacing) * (1 - firstShare)

    width: parent?.width ?? 0
    columns: isStacked ? 1 : 2
    spacing: isStacked ? Theme.gap8 : Theme.gap12
}
