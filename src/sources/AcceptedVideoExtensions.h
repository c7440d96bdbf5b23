// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <array>

namespace reelsmith {

/// What the name of a video holds, in the order in which it is looked for.
inline const std::array<QString, 5> acceptedVideoExtensions{
    QStringLiteral(".avi"), QStringLiteral(".mov"),  QStringLiteral(".mp4"),
    QStringLiteral(".mkv"), QStringLiteral(".hevc"),
};

} // namespace reelsmith
