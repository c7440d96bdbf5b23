// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// The root of what stands for one item in a CollectionView: a tap and a long press go to `item`, its cell. The view
/// has the keyboard, not its items; `ringMargin` is how far inside the edge the ring stands that shows it.
Pressable {
    id: control

    required property App.ReusableCell item
    property real ringMargin: -Theme.focusDistance - Theme.focusWidth

    focusPolicy: Qt.NoFocus
    onClicked: item.tap()
    onPressAndHold: item.openMenu(mapToItem(null, -item.frame.x, -item.frame.y))

    FocusRing {
        anchors.margins: control.ringMargin
        inner: control.radius
        ring: control.ring
        visible: control.item.isCurrent
    }
}
