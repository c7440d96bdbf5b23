// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// One tab's stack: the uppermost screen under a bar with its title.
Screen {
    id: screen

    required property App.MainNavigationController controller
    readonly property list<Item> stages: [stage]

    Item {
        id: stage

        anchors.top: bar.visible ? bar.bottom : parent.top
        anchors.bottom: toolbar.top
        width: parent.width
        clip: true
    }
    NavigationBar {
        id: bar

        width: parent.width
        visible: !screen.controller.isNavigationBarHidden
        title: screen.controller.barTitle
        hasBack: !screen.controller.isAtRoot
        onBack: screen.controller.goBack()
    }
    Toolbar {
        id: toolbar

        width: parent.width
        isShown: !screen.controller.isToolbarHidden
        items: screen.controller.barItems
    }
}
