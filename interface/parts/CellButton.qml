// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Reelsmith as App

/// The root of what stands for one item in a CollectionView: a tap and a long press go to `item`, its cell. The view
/// has the keyboard, not its items; `ringMargin` is how far inside the edge the ring stands that shows it. `label` is
/// what it is called for those who hear it, `radius` its shape, which it shows on its `face` when it is pressed
/// (`shrinks`: by getting smaller too).
T.ItemDelegate {
    id: control

    required property App.ReusableCell item
    property string label
    property real radius
    property color ring: Theme.accent
    property real ringMargin: -Theme.focusDistance - Theme.focusWidth
    property bool shrinks: false
    property Item face: control

    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    scale: shrinks && pressed ? Theme.pressedScale : 1
    Accessible.name: label
    Accessible.focused: item.isCurrent
    Accessible.onPressAction: if (control.enabled) control.clicked()
    onClicked: item.tap()
    onPressAndHold: item.openMenu(mapToItem(null, -item.frame.x, -item.frame.y))

    Behavior on scale {
        NumberAnimation {
            duration: Theme.press
        }
    }

    PressMarks {
        anchors.fill: control.face
        control: control
        radius: control.radius
    }
    FocusRing {
        anchors.margins: control.ringMargin
        inner: control.radius
        ring: control.ring
        visible: control.item.isCurrent
    }
}
