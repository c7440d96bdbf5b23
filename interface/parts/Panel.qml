// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A sheet or card over a screen: `header` and `footer` stay, its children between them scroll once the whole would be
/// higher than `tallest`. All three are columns, `padding` from its edges (`bottomPadding` from the lower) and `gap`
/// apart. Where that leaves next to nothing between the two, as a keyboard does on a phone that lies down, all three
/// scroll together.
Rectangle {
    id: panel

    property real padding: Theme.sheetPadding
    property real bottomPadding: padding
    property real gap: Theme.gap16
    property real tallest: Infinity
    property alias header: headerColumn.data
    property alias footer: footerColumn.data
    property alias spacing: middle.spacing
    default property alias rows: middle.data

    readonly property real aboveBody: padding + (headerColumn.implicitHeight > 0 ? headerColumn.implicitHeight + gap : 0)
    readonly property real belowBody: bottomPadding + (footerColumn.implicitHeight > 0 ? footerColumn.implicitHeight + gap : 0)
    readonly property bool scrollsWhole: tallest < aboveBody + Theme.leastBody + belowBody

    implicitHeight: Math.min(tallest, body.implicitHeight + (scrollsWhole ? 0 : aboveBody + belowBody))
    color: Theme.surface
    onScrollsWholeChanged: body.contentY = 0

    Shadow {
        shadow: Theme.sheetShadow
        radius: panel.radius
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    Item {
        id: top

        x: panel.padding
        y: panel.padding

        Column {
            id: headerColumn

            parent: panel.scrollsWhole ? scrolledTop : top
            width: panel.width - 2 * panel.padding
        }
    }
    ScrollArea {
        id: body

        y: panel.scrollsWhole ? 0 : panel.aboveBody
        width: panel.width
        height: panel.height - (panel.scrollsWhole ? 0 : panel.aboveBody + panel.belowBody)
        margin: panel.padding
        topPadding: panel.scrollsWhole ? panel.padding : 0
        bottomPadding: panel.scrollsWhole ? panel.bottomPadding : 0
        spacing: panel.gap

        Item {
            id: scrolledTop

            width: parent.width
            height: headerColumn.implicitHeight
            visible: panel.scrollsWhole
        }
        Column {
            id: middle

            width: parent.width
        }
        Item {
            id: scrolledBottom

            width: parent.width
            height: footerColumn.implicitHeight
            visible: panel.scrollsWhole
        }
    }
    Item {
        id: bottom

        x: panel.padding
        y: panel.height - panel.bottomPadding - footerColumn.height

        Column {
            id: footerColumn

            parent: panel.scrollsWhole ? scrolledBottom : bottom
            width: panel.width - 2 * panel.padding
        }
    }
}
