// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace reelsmith::media {

/// What a player of this level must be able to take (ITU-T H.264, table A-1; the rate for High profile).
struct H264Level {
    int number; ///< ten times the level's name
    int macroblocksPerFrame;
    int macroblocksPerSecond;
    int maximumBitRate; ///< bits a second, and bits that the decoder's buffer holds
};

/// The lowest level that has room for pictures of this size at this rate; the highest where none has.
H264Level levelFor(int width, int height, double frameRate);

} // namespace reelsmith::media
