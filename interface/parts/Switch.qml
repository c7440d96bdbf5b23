// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// Something that is on or off: `checked`, and `toggled` when the user changes it. `label` is what it is called for
/// those who hear it.
T.Switch {
    id: control

    property string label
    property bool isEnabled: true

    signal turned

    implicitWidth: Theme.switchWidth
    implicitHeight: Theme.target
    enabled: isEnabled
    opacity: isEnabled ? 1 : Theme.disabledOpacity
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    Accessible.name: label
    Accessible.onPressAction: if (control.enabled) control.turned()
    Accessible.onToggleAction: if (control.enabled) control.turned()
    Keys.onReturnPressed: turned()
    onTurned: {
        toggle();
        toggled();
        clicked();
    }

    indicator: Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.switchWidth
        height: Theme.switchHeight
        radius: Theme.switchHeight / 2
        color: control.checked ? Theme.accent : Theme.inkFaint

        Rectangle {
            readonly property real inset: (Theme.switchHeight - Theme.switchKnobSize) / 2

            x: control.checked ? parent.width - width - inset : inset
            y: inset
            width: Theme.switchKnobSize
            height: Theme.switchKnobSize
            radius: Theme.switchKnobSize / 2
            color: Theme.accentInk

            Behavior on x {
                NumberAnimation {
                    duration: Theme.selectionSlide
                    easing.type: Easing.OutCubic
                }
            }
        }
        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: control.pressed ? Theme.pressedVeil : Theme.hoverVeil
            visible: control.pressed || control.hovered
        }
        FocusRing {
            inner: parent.radius
            visible: control.activeFocus
        }
    }
}
