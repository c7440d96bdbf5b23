// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The shadow of the item that it is a child of: `shadow`, for corners of `radius`.
BorderImage {
    required property ShadowStyle shadow
    required property real radius

    anchors.fill: parent
    anchors.margins: -shadow.reach
    z: -2
    source: "image://shadow/" + radius + "/" + shadow.layers + shadow.tint
    border {
        left: shadow.reach + radius + shadow.blur
        right: shadow.reach + radius + shadow.blur
        top: shadow.reach + radius + shadow.blur
        bottom: shadow.reach + radius + shadow.blur
    }
    Accessible.ignored: true
}
