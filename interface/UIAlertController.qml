// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

Alert {
    required property App.UIAlertController controller

    title: controller.title
    message: controller.message
    actions: controller.actions
    onPressed: index => controller.press(index)
}
