// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Two buttons side by side, or below each other with large text. The first takes `narrowWidth`, the second
/// `wideWidth`.
Grid {
    readonly property real narrowWidth: Theme.isLargeText ? width : Math.round((width - spacing) * Theme.narrowShare)
    readonly property real wideWidth: Theme.isLargeText ? width : width - spacing - narrowWidth

    columns: Theme.isLargeText ? 1 : 2
    spacing: Theme.isLargeText ? Theme.gap8 : Theme.gap12
}
