// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>
#include <string>
#include <vector>

class QQuickWindow;

namespace reelsmith {

/// Which texts and icons of a screen that can be used stand out too little from what is drawn below them now,
/// after the guidelines' level AA, or AAA where `isHigh`.
std::vector<std::string> faintMarks(QQuickWindow& window, QQuickItem& screen, bool isHigh);

} // namespace reelsmith
