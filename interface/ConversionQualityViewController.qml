// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// Asks for the name and the quality of a result.
BottomSheet {
    id: card

    required property App.ConversionQualityViewController controller
    readonly property var sentences: ["Smallest file, fine for messages and old phones.",
        "A good balance, right for most videos.", "Best picture, largest file."]

    label: "Name and quality"
    onDimTapped: controller.requestDismiss()

    header: SheetHeader {
        width: parent.width
        pictureSize: Theme.sheetPicture
        source: card.controller.thumbImageView
        title: card.controller.sourceNameLabel.text
        note: card.controller.sourceDetailsLabel.text
        onClosed: card.controller.requestDismiss()
    }

    StyledText {
        width: parent.width
        leftPadding: Theme.hair * 2
        bottomPadding: Theme.gap8
        text: "Name"
        textStyle: Theme.smallNote
        color: Theme.inkSoft
    }
    TextField {
        objectName: "name"
        width: parent.width
        label: "Name"
        suffix: ".mp4"
        selectsOnFocus: true
        text: card.controller.filenameTextField.text
        onTextChanged: card.controller.filenameTextField.text = text
        onAccepted: card.controller.convertTapped()
    }
    Item {
        width: parent.width
        height: Math.max(Theme.warningHeight, warning.height + Theme.gap8)

        Icon {
            id: warningIcon

            y: Theme.gap8
            visible: warning.visible
            name: "warning"
            color: Theme.warn
            size: Theme.smallIcon
        }
        SpokenText {
            id: warning

            anchors.left: warningIcon.right
            anchors.leftMargin: Theme.gap8
            anchors.right: parent.right
            y: Theme.gap8
            visible: !card.controller.warningLabel.isHidden
            text: card.controller.warningLabel.text
            textStyle: Theme.smallNote
            color: Theme.warn
        }
    }
    StyledText {
        width: parent.width
        leftPadding: Theme.hair * 2
        topPadding: Theme.gap8
        bottomPadding: Theme.gap8
        text: "Quality"
        textStyle: Theme.smallNote
        color: Theme.inkSoft
    }
    Segments {
        objectName: "quality"
        width: parent.width
        label: "Quality"
        segments: [{
                "title": "Low",
                "note": card.controller.estimates[0]
            }, {
                "title": "Medium",
                "note": card.controller.estimates[1]
            }, {
                "title": "High",
                "note": card.controller.estimates[2]
            }]
        currentIndex: card.controller.qualitySegmentedView.selectedSegmentIndex
        onActivated: index => {
            card.controller.qualitySegmentedView.selectedSegmentIndex = index;
            card.controller.qualityTapped();
        }
    }
    // As high as the longest of them, so that nothing jumps.
    Item {
        width: parent.width
        height: childrenRect.height

        Repeater {
            model: card.sentences

            // qmllint disable unqualified
            SpokenText {
                required property int index
                required property string modelData

                width: parent?.width ?? 0
                leftPadding: Theme.hair * 2
                topPadding: Theme.gap8
                visible: index === card.controller.qualitySegmentedView.selectedSegmentIndex
                text: modelData
                textStyle: Theme.note
                color: Theme.inkSoft
            }
            // qmllint enable unqualified
        }
    }
    footer: Button {
        objectName: "convert"
        width: parent.width
        focus: true
        label: "Convert"
        onClicked: card.controller.convertTapped()
    }
}
