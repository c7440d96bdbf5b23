// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// Fills the screen that it stands in, upright or, where the user has turned it, on its side; its children are laid out
/// in its own width and height.
Item {
    anchors.centerIn: parent
    width: Theme.isTurned ? parent.height : parent.width
    height: Theme.isTurned ? parent.width : parent.height
    rotation: Theme.isTurned ? 90 : 0
}
