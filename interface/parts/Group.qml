// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Rows on one card; its children stand below each other.
Card {
    default property alias rows: column.data

    implicitHeight: column.implicitHeight

    Column {
        id: column

        width: parent.width
    }
}
