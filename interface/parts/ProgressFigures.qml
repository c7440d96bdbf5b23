// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// How far something has come: `figure` large at the left, `note` small at the right, or below where there is no room.
Item {
    id: figures

    property string figure
    property string note

    readonly property bool isSideBySide: large.width + Theme.gap12 + small.implicitWidth <= width

    implicitHeight: isSideBySide ? Math.max(large.height, small.height) : large.height + small.height

    SteadyDigits {
        id: large

        // Empty figures keep their place.
        height: Theme.display.scaledLine
        text: figures.figure
        textStyle: Theme.display
    }
    SteadyDigits {
        id: small

        x: figures.isSideBySide ? figures.width - width : 0
        y: figures.isSideBySide ? large.height - height - Theme.gap8 : large.height
        height: Theme.note.scaledLine
        text: figures.note
        textStyle: Theme.note
        color: Theme.inkSoft
    }
}
