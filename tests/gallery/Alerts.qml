// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith.Parts

Convert {
    Alert {
        anchors.fill: parent
        title: "Delete Video"
        message: "Are you sure you want to delete this video?"
        actions: [
            {
                "title": "delete",
                "style": "destructive"
            },
            {
                "title": "cancel",
                "style": "cancel"
            }
        ]
    }
}
