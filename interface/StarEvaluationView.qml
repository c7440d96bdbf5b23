// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Reelsmith as App
import Reelsmith.Parts

/// The stars of a rating.
StarRow {
    required property App.StarEvaluationView view

    label: "Rating"
    value: view.litStarCount
    onActivated: rating => view.starSelected(rating - 1)
}
