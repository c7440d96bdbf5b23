// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// A picture with round corners that fills its place: `source`, a controller's outlet. Until there is one, or for good
/// where there is none, a placeholder stands there; the first picture fades in.
Item {
    id: picture

    property App.ImageView source
    property real radius: Theme.fieldRadius
    property real placeholderSize: Math.min(Theme.placeholderIcon, width / 2)

    Rectangle {
        anchors.fill: parent
        radius: picture.radius
        color: Theme.field
        visible: item.opacity < 1

        Icon {
            anchors.centerIn: parent
            name: "converted"
            color: Theme.inkFaint
            size: picture.placeholderSize
        }
    }
    App.PictureItem {
        id: item

        anchors.fill: parent
        source: picture.source
        radius: picture.radius
        opacity: 0
        states: State {
            name: "shown"
            when: item.hasPicture

            PropertyChanges {
                item.opacity: 1
            }
        }
        transitions: Transition {
            to: "shown"

            NumberAnimation {
                property: "opacity"
                duration: Theme.picture
            }
        }
    }
}
