// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/MovieHeader.h"

#include "media/BoxWalk.h"

#include <unistd.h>

namespace reelsmith::media {

std::optional<std::int32_t> movieTimescale(int descriptor) {
    std::optional<std::int32_t> found;
    const auto readHeader = [&](const Box& box) {
        if (box.type != "mvhd")
            return true;
        const bool isLong = readBigEndian(descriptor, box.contentStart, 1) == 1;
        const auto timescale = readBigEndian(descriptor, box.contentStart + (isLong ? 20 : 12), 4);
        if (timescale > 0 && timescale <= INT32_MAX)
            found = static_cast<std::int32_t>(timescale);
        return false;
    };
    walkBoxes(descriptor, 0, ::lseek(descriptor, 0, SEEK_END), [&](const Box& box) {
        if (box.type != "moov")
            return true;
        walkBoxes(descriptor, box.contentStart, box.end, readHeader);
        return false;
    });
    return found;
}

} // namespace reelsmith::media
