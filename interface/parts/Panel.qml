// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A sheet or card over a screen: `header` and `footer` stay, its children between them scroll once the whole would be
/// higher than `tallest`. All three are columns, `padding` from its edges and `gap` apart.
Rectangle {
    id: panel

    property real padding: Theme.sheetPadding
    property real gap: Theme.gap16
    property real tallest: Infinity
    property alias header: headerColumn.data
    property alias footer: footerColumn.data
    property alias spacing: body.spacing
    default property alias rows: body.rows

    readonly property real aboveBody: padding + (headerColumn.implicitHeight > 0 ? headerColumn.implicitHeight + gap : 0)
    readonly property real belowBody: padding + (footerColumn.implicitHeight > 0 ? footerColumn.implicitHeight + gap : 0)

    implicitHeight: Math.min(tallest, aboveBody + body.implicitHeight + belowBody)
    color: Theme.surface

    Shadow {
        shadow: Theme.sheetShadow
        radius: panel.radius
    }
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    Column {
        id: headerColumn

        x: panel.padding
        y: panel.padding
        width: panel.width - 2 * panel.padding
    }
    ScrollArea {
        id: body

        y: panel.aboveBody
        width: panel.width
        height: panel.height - panel.aboveBody - panel.belowBody
        margin: panel.padding
    }
    Column {
        id: footerColumn

        x: panel.padding
        anchors.bottom: parent.bottom
        anchors.bottomMargin: panel.padding
        width: panel.width - 2 * panel.padding
    }
}
