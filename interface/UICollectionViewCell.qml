// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App

/// A tile with nothing on it.
Item {
    required property App.UICollectionViewCell cell
}
