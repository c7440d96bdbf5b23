// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A choice of few: `segments` (each with a "title" and a "note" below it), of which `currentIndex` is chosen.
/// `activated` tells a choice, by press or by the arrow keys; whoever listens sets `currentIndex`. `label` is what the
/// choice is called for those who hear it.
FocusScope {
    id: control

    property string label
    property var segments: []
    property int currentIndex: 0

    readonly property real segmentWidth: (width - 2 * Theme.segmentsInset) / Math.max(segments.length, 1)

    signal activated(int index)

    implicitHeight: Math.max(Theme.segmentsHeight,
                             Theme.strong.scaledLine + Theme.caption.scaledLine + 2 * (Theme.gap8 + Theme.segmentsInset))
    implicitWidth: Theme.alertWidth
    activeFocusOnTab: true
    Accessible.role: Accessible.Grouping
    Accessible.name: label
    Accessible.focusable: true
    Keys.onLeftPressed: activated(Math.max(currentIndex - 1, 0))
    Keys.onRightPressed: activated(Math.min(currentIndex + 1, segments.length - 1))

    Rectangle {
        anchors.fill: parent
        radius: Theme.buttonRadius
        color: Theme.field

        FocusRing {
            inner: parent.radius
            visible: control.activeFocus
        }
    }
    Card {
        x: Theme.segmentsInset + control.currentIndex * control.segmentWidth
        y: Theme.segmentsInset
        width: control.segmentWidth
        height: parent.height - 2 * Theme.segmentsInset
        radius: Theme.segmentRadius
        color: Theme.segmentOn
        border.width: Theme.hasHighContrast ? Theme.hair : 0

        Behavior on x {
            NumberAnimation {
                duration: Theme.selectionSlide
                easing.type: Easing.OutCubic
            }
        }
    }
    Row {
        x: Theme.segmentsInset
        y: Theme.segmentsInset

        Repeater {
            model: control.segments

            // qmllint disable unqualified
            Choice {
                id: segment

                required property var modelData
                required property int index

                width: control.segmentWidth
                height: control.height - 2 * Theme.segmentsInset
                leftPadding: Theme.gap4
                rightPadding: Theme.gap4
                radius: Theme.segmentRadius
                isChosen: index === control.currentIndex
                hasKeyboard: isChosen && control.activeFocus
                veils: !isChosen
                label: modelData.title
                Accessible.description: modelData.note
                onClicked: control.activated(index)

                contentItem: Item {
                    Column {
                        anchors.verticalCenter: parent.verticalCenter
                        width: parent.width

                        StyledText {
                            width: parent.width
                            horizontalAlignment: Text.AlignHCenter
                            text: segment.modelData.title
                            textStyle: Theme.strong
                            color: segment.isChosen ? Theme.segmentTitle : Theme.ink
                            wrapMode: Text.NoWrap
                            fontSizeMode: Text.HorizontalFit
                            minimumPixelSize: Theme.smallestSegment
                        }
                        StyledText {
                            width: parent.width
                            horizontalAlignment: Text.AlignHCenter
                            visible: text !== ""
                            text: segment.modelData.note
                            textStyle: Theme.caption
                            color: segment.isChosen ? Theme.segmentNote : Theme.inkSoft
                            wrapMode: Text.NoWrap
                            fontSizeMode: Text.HorizontalFit
                            minimumPixelSize: Theme.smallestTab
                        }
                    }
                }
            }
            // qmllint enable unqualified
        }
    }
}
