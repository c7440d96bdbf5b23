// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// A row of a menu: `label`, and its icon (`iconName`) at the end. The arrow keys go on to the next or previous one.
T.MenuItem {
    id: control

    property string label
    property string iconName
    property bool isDestructive: false
    property bool hasLine: false

    readonly property color tint: isDestructive ? Theme.danger : Theme.ink

    implicitHeight: Math.max(Theme.menuRow, implicitContentHeight + topPadding + bottomPadding)
    leftPadding: Theme.gap16
    rightPadding: Theme.gap16
    topPadding: Theme.gap12
    bottomPadding: Theme.gap12
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    Accessible.name: label
    Accessible.onPressAction: if (control.enabled) control.clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
    Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

    contentItem: Item {
        implicitHeight: words.implicitHeight

        StyledText {
            id: words

            anchors.left: parent.left
            anchors.right: icon.left
            anchors.rightMargin: Theme.gap8
            anchors.verticalCenter: parent.verticalCenter
            text: control.label
            color: control.tint
        }
        Icon {
            id: icon

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            name: control.iconName
            color: control.tint
        }
    }

    Rectangle {
        width: parent.width
        height: Theme.hair
        color: Theme.line
        visible: control.hasLine
    }
    PressMarks {
        anchors.fill: parent
        anchors.margins: Theme.gap4
        control: control
        radius: Theme.cardRadius - Theme.gap4
    }
}
