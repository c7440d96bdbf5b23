// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// A bar that fills: `value` of 0…1, its end alight; or, `indeterminate`, a piece that wanders. `label` is what it is
/// called for those who hear it.
T.ProgressBar {
    id: bar

    property string label

    readonly property real filled: value * width

    implicitWidth: Theme.alertWidth
    implicitHeight: Theme.progressHeight
    Accessible.name: label
    Accessible.description: indeterminate ? "" : Math.floor(value * 100) + "%"

    background: Rectangle {
        radius: height / 2
        color: Theme.field
    }
    contentItem: Item {
        Item {
            id: fill

            readonly property real travel: bar.width - width

            property real place

            x: bar.indeterminate ? place * travel : 0
            width: bar.indeterminate ? bar.width / 3 : bar.value > 0 ? Math.max(bar.filled, height) : 0
            height: parent.height

            Rectangle {
                anchors.right: parent.right
                width: Math.min(Theme.progressTip + height, parent.width)
                height: parent.height
                radius: height / 2
                color: Theme.spark
            }
            // Cut out of a longer piece, so that its end is round however little of it is seen.
            Item {
                width: Math.max(0, parent.width - Theme.progressTip)
                height: parent.height
                clip: true

                Rectangle {
                    width: fill.width
                    height: parent.height
                    radius: height / 2
                    color: Theme.accent
                }
            }
            SequentialAnimation on place {
                running: bar.indeterminate && bar.visible && Theme.indeterminate > 0
                loops: Animation.Infinite

                NumberAnimation {
                    to: 1
                    duration: Theme.indeterminate
                    easing.type: Easing.InOutCubic
                }
                NumberAnimation {
                    to: 0
                    duration: Theme.indeterminate
                    easing.type: Easing.InOutCubic
                }
            }
        }
    }
}
