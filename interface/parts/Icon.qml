// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// One of the icons, `name`, in `color`, `size` points wide; sharp at any density.
Image {
    property string name
    property color color: Theme.ink
    property real size: Theme.icon

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: name === "" ? "" : "image://icon/" + name + color
    Accessible.ignored: true
}
