// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// What the rows below it are about.
SpokenText {
    leftPadding: Theme.gap4
    bottomPadding: Theme.gap8
    textStyle: Theme.sectionTitle
    color: Theme.inkSoft
    Accessible.role: Accessible.Heading
}
