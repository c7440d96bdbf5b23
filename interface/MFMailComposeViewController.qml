// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// Dim, while the user writes in the mail program.
Overlay {
    required property App.MFMailComposeViewController controller

    label: "Writing a mail"
}
