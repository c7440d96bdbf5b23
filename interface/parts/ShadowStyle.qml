// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// One kind of shadow: `layers` as the shadow drawings name them ("lower,blur,strength", a slash between two),
/// `reach` and `blur` the largest of them in points.
QtObject {
    required property string layers
    required property int reach
    required property int blur
    property color tint: "black"
}
