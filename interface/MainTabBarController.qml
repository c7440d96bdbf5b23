// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The tabs, each with its own stack of screens, and the bar below them.
Screen {
    id: screen

    required property App.MainTabBarController controller
    readonly property list<Item> stages: [first, second, third]

    ground: Theme.backdrop
    fillsWindow: true

    Item {
        id: column

        anchors.horizontalCenter: parent.horizontalCenter
        width: Theme.columnWidth
        height: parent.height

        Item {
            id: pages

            width: parent.width
            height: parent.height - (bar.visible ? bar.height : 0)

            Item {
                id: first

                anchors.fill: parent
                visible: screen.controller.selectedIndex === 0
            }
            Item {
                id: second

                anchors.fill: parent
                visible: screen.controller.selectedIndex === 1
            }
            Item {
                id: third

                anchors.fill: parent
                visible: screen.controller.selectedIndex === 2
            }
        }
        Bar {
            id: bar

            anchors.bottom: parent.bottom
            width: parent.width
            height: tabs.implicitHeight
            isAtBottom: true
            visible: !screen.controller.isTabBarHidden

            Row {
                id: tabs

                width: parent.width
                Accessible.role: Accessible.PageTabList
                Accessible.name: "Screens"

                TabButton {
                    objectName: "tab0"
                    width: tabs.width / 3
                    label: screen.controller.tabTitles[0]
                    iconName: screen.controller.tabImages[0]
                    isSelected: screen.controller.selectedIndex === 0
                    onClicked: screen.controller.selectedIndex = 0
                }
                TabButton {
                    objectName: "tab1"
                    width: tabs.width / 3
                    label: screen.controller.tabTitles[1]
                    iconName: screen.controller.tabImages[1]
                    isSelected: screen.controller.selectedIndex === 1
                    onClicked: screen.controller.selectedIndex = 1
                }
                TabButton {
                    objectName: "tab2"
                    width: tabs.width / 3
                    label: screen.controller.tabTitles[2]
                    iconName: screen.controller.tabImages[2]
                    isSelected: screen.controller.selectedIndex === 2
                    onClicked: screen.controller.selectedIndex = 2
                }
            }
        }
    }
    Rectangle {
        anchors.right: column.left
        width: Theme.hair
        height: parent.height
        color: Theme.line
        visible: Theme.isWide
    }
    Rectangle {
        anchors.left: column.right
        width: Theme.hair
        height: parent.height
        color: Theme.line
        visible: Theme.isWide
    }
}
