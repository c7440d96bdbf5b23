// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A button with words: `label`, perhaps an icon before it (`iconName`), in one of five kinds. `leastHeight` is 56 in a
/// sheet, 52 in a card, 48 in an alert.
Pressable {
    id: control

    enum Kind {
        Primary,
        Secondary,
        Tonal,
        Danger,
        OnPicture
    }

    property int kind: Button.Primary
    property string iconName
    property real leastHeight: Theme.buttonInSheet

    readonly property color tint: kind === Button.Primary ? Theme.accentInk : kind === Button.Tonal ? Theme.accent
                                                          : kind === Button.Danger ? Theme.danger
                                                          : kind === Button.OnPicture ? Theme.pictureButtonInk : Theme.ink
    readonly property color fill: kind === Button.Primary ? (pressed ? Theme.accentPressed : Theme.accent)
                                                          : kind === Button.Tonal ? Theme.accentSoft
                                                          : kind === Button.Danger ? Theme.dangerSoft
                                                          : kind === Button.OnPicture ? Theme.pictureButton : Theme.field

    veils: kind !== Button.Primary || !pressed
    implicitHeight: Math.max(leastHeight, implicitContentHeight + topPadding + bottomPadding)
    leftPadding: Theme.gap16
    rightPadding: Theme.gap16
    topPadding: Theme.gap12
    bottomPadding: Theme.gap12

    background: Rectangle {
        radius: control.radius
        color: control.fill
        border.width: Theme.hasHighContrast ? Theme.hair : 0
        border.color: control.tint
    }
    contentItem: Item {
        implicitWidth: row.implicitWidth
        implicitHeight: words.implicitHeight

        Row {
            id: row

            anchors.centerIn: parent
            spacing: Theme.gap12

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                visible: control.iconName !== ""
                name: control.iconName
                color: control.tint
                size: Theme.rowIcon
            }
            StyledText {
                id: words

                width: Math.min(implicitWidth, control.availableWidth - (control.iconName === "" ? 0 : Theme.rowIcon + row.spacing))
                horizontalAlignment: Text.AlignHCenter
                text: control.label
                textStyle: Theme.strong
                color: control.tint
            }
        }
    }
}
