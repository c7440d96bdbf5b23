// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A rating: `value` of 0…5 stars. `activated` tells a choice, by press or by the arrow keys; whoever listens sets
/// `value`. `label` is what it is called for those who hear it.
FocusScope {
    id: control

    property string label
    property int value: 0

    readonly property int count: 5

    signal activated(int value)

    implicitWidth: count * Theme.starTarget
    implicitHeight: Theme.starTarget
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: label
    Accessible.focusable: true
    Keys.onLeftPressed: activated(Math.max(value - 1, 1))
    Keys.onRightPressed: activated(Math.min(value + 1, count))

    FocusRing {
        inner: Theme.fieldRadius
        visible: control.activeFocus
    }
    Row {
        Repeater {
            model: control.count

            // qmllint disable unqualified
            Choice {
                required property int index

                width: Theme.starTarget
                height: Theme.starTarget
                radius: Theme.starTarget / 2
                label: index === 0 ? "1 star" : (index + 1) + " stars"
                isChosen: index + 1 === control.value
                hasKeyboard: isChosen && control.activeFocus
                onClicked: control.activated(index + 1)

                contentItem: Item {
                    Icon {
                        anchors.centerIn: parent
                        name: "starDeselected"
                        color: Theme.inkFaint
                        size: Theme.starSize
                    }
                    Icon {
                        anchors.centerIn: parent
                        name: "starSelected"
                        color: Theme.star
                        size: Theme.starSize
                        opacity: index < control.value ? 1 : 0

                        Behavior on opacity {
                            NumberAnimation {
                                duration: Theme.stars
                            }
                        }
                    }
                }
            }
            // qmllint enable unqualified
        }
    }
}
