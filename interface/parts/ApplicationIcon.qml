// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// The application's own icon, `size` points wide.
Image {
    property real size: Theme.aboutIcon

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: "qrc:/application-icon/io.reelsmith.Reelsmith.svg"
    Accessible.ignored: true
}
