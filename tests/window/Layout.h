// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>
#include <string>
#include <vector>

class QQuickWindow;

namespace reelsmith {

/// What an item is called in the words of a failing test.
std::string description(const QQuickItem& item);

/// Whether it is a text, with something to read in it.
bool isText(const QQuickItem& item);

/// Where in the window an item, or the letters of a text, can be seen; null where it cannot.
QRectF seenPlace(const QQuickItem& item, const QQuickItem& screen);

/// What is wrong with how a screen is laid out now: texts and controls that are cut off, that leave their
/// place or lie over each other.
std::vector<std::string> flaws(QQuickWindow& window, QQuickItem& screen);

} // namespace reelsmith
