// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace reelsmith {

/// A picture as bare pixels: 8-bit RGBA, rows without padding, top first.
struct CGImage {
    int width = 0;
    int height = 0;
    QByteArray pixels;
};

} // namespace reelsmith
