// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The user's settings, ways to the maker, and what this application is.
Screen {
    id: screen

    required property App.SettingsViewController controller

    ScrollArea {
        anchors.fill: parent
        margin: Theme.sideMargin
        topPadding: Theme.gap20
        bottomPadding: Theme.gap24

        SectionTitle {
            width: parent.width
            text: "General"
        }
        Group {
            width: parent.width

            SwitchRow {
                objectName: "sendUsageData"
                width: parent.width
                iconName: "chart"
                label: "Send usage data"
                note: "Counts of what is used and what fails. Never your videos, their names or where they are."
                linkLabel: "See more"
                isOn: screen.controller.usageSwitch.isOn
                onSwitched: isOn => {
                    screen.controller.usageSwitch.isOn = isOn;
                    screen.controller.appUsageSwitchChanged();
                }
                onLinkTapped: screen.controller.seeMoreTapped()
            }
            ActionRow {
                width: parent.width
                margin: Theme.cardPadding
                tileSize: Theme.rowIconTile
                tint: Theme.accent
                tileColor: Theme.accentSoft
                leastHeight: Theme.settingsRow
                iconName: "shield"
                label: "Converted on this device"
                note: "Videos are never uploaded"
                isInformation: true
                hasLine: true
            }
            ActionRow {
                objectName: "moreApps"
                width: parent.width
                margin: Theme.cardPadding
                tileSize: Theme.rowIconTile
                tint: Theme.plum
                tileColor: Theme.plumSoft
                leastHeight: Theme.settingsRow
                iconName: "apps"
                endIcon: "external"
                label: "More apps by the maker"
                hasLine: true
                onClicked: screen.controller.selectRow(0, 2)
            }
        }
        SectionTitle {
            width: parent.width
            topPadding: Theme.groupGap
            text: "Help"
        }
        Group {
            width: parent.width

            ActionRow {
                objectName: "reportProblem"
                width: parent.width
                margin: Theme.cardPadding
                tileSize: Theme.rowIconTile
                tint: Theme.steel
                tileColor: Theme.steelSoft
                leastHeight: Theme.settingsRow
                iconName: "mail"
                endIcon: "chevron"
                label: "Report a problem"
                note: "Write us a mail"
                onClicked: screen.controller.selectRow(1, 0)
            }
        }
        Column {
            width: parent.width
            topPadding: Theme.gap48

            ApplicationIcon {
                anchors.horizontalCenter: parent.horizontalCenter
                size: Theme.aboutIcon
            }
            SpokenText {
                width: parent.width
                topPadding: Theme.gap12
                horizontalAlignment: Text.AlignHCenter
                text: "Reelsmith"
                textStyle: Theme.strong
            }
            SpokenText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: screen.controller.versionLabel.text
                textStyle: Theme.note
                color: Theme.inkSoft
            }
            SpokenText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: "Free software, made with Qt and FFmpeg"
                textStyle: Theme.note
                color: Theme.inkSoft
            }
            TextButton {
                objectName: "licences"
                anchors.horizontalCenter: parent.horizontalCenter
                label: "Licences"
                onClicked: screen.controller.licencesTapped()
            }
        }
    }
}
