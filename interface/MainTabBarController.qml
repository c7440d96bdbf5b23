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

                Repeater {
                    model: screen.controller.tabTitles.length

                    TabButton {
                        required property int index

                        objectName: "tab" + index
                        width: tabs.width / screen.controller.tabTitles.length
                        label: screen.controller.tabTitles[index]
                        iconName: screen.controller.tabImages[index]
                        isSelected: screen.controller.selectedIndex === index
                        onClicked: screen.controller.selectedIndex = index
                    }
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
