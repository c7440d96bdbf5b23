// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T

/// One line to type: `text`, `placeholderText`, `accepted` on Return. `label` is what it is called for those who hear
/// it, `suffix` stands after the text and is no part of it. It offers to clear the text, and to paste while there is
/// none (`offersPaste`). `selectsOnFocus`: getting the focus selects the text.
T.TextField {
    id: field

    property string label
    property string suffix
    property bool offersPaste: false
    property bool selectsOnFocus: false
    property bool isEnabled: true

    readonly property bool isEmpty: text === "" && preeditText === ""

    implicitWidth: Theme.alertWidth
    implicitHeight: Math.max(Theme.fieldHeight, contentHeight + topPadding + bottomPadding)
    leftPadding: Theme.gap16
    rightPadding: trailing.width + Theme.gap12
    topPadding: Theme.gap12
    bottomPadding: Theme.gap12
    verticalAlignment: Text.AlignVCenter
    enabled: isEnabled
    opacity: isEnabled ? 1 : Theme.disabledOpacity
    font.pixelSize: Theme.body.scaledSize
    color: Theme.ink
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    selectByMouse: true
    Accessible.role: Accessible.EditableText
    Accessible.name: label
    // Until someone types, its beginning says more than its end.
    onTextChanged: if (!activeFocus) cursorPosition = 0
    onActiveFocusChanged: {
        if (!selectsOnFocus)
            deselect();
        else if (activeFocus)
            selectAll();
        else
            cursorPosition = 0;
    }

    background: Rectangle {
        radius: Theme.fieldRadius
        color: field.activeFocus ? Theme.surface : Theme.field
        border.width: field.activeFocus ? Theme.focusWidth : Theme.hasHighContrast ? Theme.hair : 0
        border.color: field.activeFocus ? Theme.accent : Theme.line
    }

    Text {
        anchors.left: parent.left
        anchors.leftMargin: field.leftPadding
        anchors.right: trailing.left
        anchors.verticalCenter: parent.verticalCenter
        visible: field.isEmpty
        text: field.placeholderText
        textFormat: Text.PlainText
        font: field.font
        color: Theme.inkFaint
        elide: Text.ElideRight
    }
    Row {
        id: trailing

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap4
        height: parent.height

        Text {
            anchors.verticalCenter: parent.verticalCenter
            visible: text !== ""
            text: field.suffix
            font: field.font
            color: Theme.inkFaint
        }
        TextButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: field.offersPaste && field.isEmpty && field.canPaste
            label: "Paste"
            onClicked: field.paste()
        }
        Pressable {
            anchors.verticalCenter: parent.verticalCenter
            visible: field.text !== ""
            label: "Clear"
            radius: Theme.icon / 2
            face: circle
            onClicked: field.clear()

            Rectangle {
                id: circle

                anchors.centerIn: parent
                width: Theme.icon
                height: Theme.icon
                radius: Theme.icon / 2
                color: Theme.field

                Icon {
                    anchors.centerIn: parent
                    name: "close"
                    color: Theme.inkSoft
                    size: Theme.smallIcon
                }
            }
        }
    }
}
