// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A StyledText that is also heard by those who hear the screen. Words that the label of a control says for it need
/// not be.
StyledText {
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.ignored: text === ""
}
