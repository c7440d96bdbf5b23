// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// One tab of the bar: `iconName` over `label`; `isSelected` colours both.
T.TabButton {
    id: control

    property string label
    property string iconName
    property bool isSelected: false

    implicitWidth: Theme.target
    implicitHeight: Math.max(Theme.tabBarHeight, contentColumn.implicitHeight + 2 * Theme.gap8)
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    checkable: false // the bar decides
    leftPadding: Theme.hair * 2
    rightPadding: Theme.hair * 2
    Accessible.name: label
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: if (control.enabled) control.clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Item {
        Column {
            id: contentColumn

            anchors.verticalCenter: parent.verticalCenter
            width: parent.width
            spacing: Theme.gap4

            Rectangle {
                id: pill

                anchors.horizontalCenter: parent.horizontalCenter
                width: Theme.tabPillWidth
                height: Theme.tabPillHeight
                radius: height / 2
                color: control.isSelected ? Theme.accentSoft : "transparent"

                Icon {
                    anchors.centerIn: parent
                    name: control.iconName
                    color: control.isSelected ? Theme.accent : Theme.gray
                }
                PressMarks {
                    anchors.fill: parent
                    control: control
                    radius: parent.radius
                }
            }
            StyledText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: control.label
                textStyle: control.isSelected ? Theme.tabSelected : Theme.tab
                color: control.isSelected ? Theme.accent : Theme.gray
                opacity: control.isSelected ? 1 : Theme.tabTitleOpacity
                wrapMode: Text.NoWrap
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.smallestTab
            }
        }
    }
}
