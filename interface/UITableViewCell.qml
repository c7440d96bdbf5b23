// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// A row with nothing in it.
Item {
    required property App.UITableViewCell cell
}
