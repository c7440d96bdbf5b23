// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Handles.h"

#include <cstdint>
#include <optional>
#include <set>

namespace reelsmith::media {

/// Gives a track's packets, which come in decoding order, the times that they do not carry: when to decode
/// them, where they only say when they are shown, and how long they last.
class MissingTimes {
public:
    /// `depth`: how many packets may come before one that is shown earlier.
    explicit MissingTimes(int depth) : m_depth(depth) {}

    /// In the order of the track.
    void fillIn(AVPacket& packet);

private:
    int m_depth;
    std::multiset<std::int64_t> m_shown; ///< not yet taken as a time of decoding
    std::optional<std::int64_t> m_last;  ///< time of decoding
};

} // namespace reelsmith::media
