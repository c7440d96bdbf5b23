// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// Shows the rows of `table`, a controller's outlet, its headers among them, and `footer` below them.
CollectionView {
    id: area

    required property App.UITableView table
    property alias footer: footerColumn.data

    view: table
    contentHeight: table.contentHeight + footerColumn.height

    Repeater {
        model: area.table.headers

        // qmllint disable unqualified
        delegate: SpokenText {
            required property var modelData

            x: Theme.sideMargin + Theme.gap4
            y: modelData.frame.y
            width: modelData.frame.width - 2 * x
            height: modelData.frame.height
            bottomPadding: Theme.gap8
            verticalAlignment: Text.AlignBottom
            text: modelData.title
            textStyle: Theme.tableHeader
            color: Theme.inkSoft
            Accessible.role: Accessible.Heading
        }
        // qmllint enable unqualified
    }
    Column {
        id: footerColumn

        y: area.table.contentHeight
        width: parent?.width ?? 0
    }
}
