// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The shadow of the item that it is a child of: `shadow`, for corners of `radius`.
BorderImage {
    id: image

    readonly property int edge: shadow.reach + radius + shadow.blur

    required property ShadowStyle shadow
    required property real radius

    anchors.fill: parent
    anchors.margins: -shadow.reach
    z: -2
    source: "image://shadow/" + radius + "/" + shadow.layers + shadow.tint
    border {
        // Opposite ones must not overlap.
        left: Math.min(edge, image.width / 2)
        right: Math.min(edge, image.width / 2)
        top: Math.min(edge, image.height / 2)
        bottom: Math.min(edge, image.height / 2)
    }
    Accessible.ignored: true
}
