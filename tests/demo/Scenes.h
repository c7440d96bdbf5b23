// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <functional>

namespace reelsmith {

class WindowApplication;

/// What the demo can show, by name; each leads there from the application's first screen.
QMap<QString, std::function<void(WindowApplication&)>> scenes();

} // namespace reelsmith
