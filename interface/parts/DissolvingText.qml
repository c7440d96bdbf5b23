// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/// A text that dissolves into the next one.
SpokenText {
    id: words

    Dissolve on text {
        item: words
    }
}
