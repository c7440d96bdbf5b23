// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The user's settings.
Screen {
    id: screen

    required property App.SettingsViewController controller

    ScrollArea {
        anchors.fill: parent
        margin: Theme.sideMargin
        topPadding: Theme.gap20

        Group {
            width: parent.width

            ActionRow {
                objectName: "sendUsageData"
                width: parent.width
                margin: Theme.cardPadding
                iconName: "chart"
                label: "Send usage data"
                note: screen.controller.sendDataSwitch.isOn ? "On" : "Off"
                onClicked: {
                    screen.controller.sendDataSwitch.isOn = !screen.controller.sendDataSwitch.isOn;
                    screen.controller.sendDataSwitched();
                }
            }
        }
    }
}
