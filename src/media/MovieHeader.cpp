// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/MovieHeader.h"

#include "media/BoxWalk.h"

#include <unistd.h>

namespace reelsmith::media {

namespace {

std::optional<Box> findMovie(int descriptor) {
    return findBox(descriptor, 0, ::lseek(descriptor, 0, SEEK_END), "moov");
}

} // namespace

std::optional<std::int32_t> movieTimescale(int descriptor) {
    const auto movie = findMovie(descriptor);
    const auto header = movie ? findBox(descriptor, movie->contentStart, movie->end, "mvhd") : std::nullopt;
    if (!header)
        return std::nullopt;
    const bool isLong = readBigEndian(descriptor, header->contentStart, 1) == 1;
    const auto timescale = readBigEndian(descriptor, header->contentStart + (isLong ? 20 : 12), 4);
    if (timescale == 0 || timescale > INT32_MAX)
        return std::nullopt;
    return static_cast<std::int32_t>(timescale);
}

bool hasSeveralDescriptions(int descriptor) {
    const auto movie = findMovie(descriptor);
    bool isFound = false;
    const auto visit = [&](const Box& track) {
        std::optional<Box> box = track;
        for (const char* type : {"mdia", "minf", "stbl", "stsd"})
            box = box ? findBox(descriptor, box->contentStart, box->end, type) : std::nullopt;
        constexpr int versionAndFlags = 4;
        isFound = track.type == "trak" && box &&
                  readBigEndian(descriptor, box->contentStart + versionAndFlags, 4) > 1;
        return !isFound;
    };
    if (movie)
        walkBoxes(descriptor, movie->contentStart, movie->end, visit);
    return isFound;
}

bool hasFragments(int descriptor) {
    const auto movie = findMovie(descriptor);
    const std::int64_t end = ::lseek(descriptor, 0, SEEK_END);
    return (movie && findBox(descriptor, movie->contentStart, movie->end, "mvex")) ||
           findBox(descriptor, 0, end, "moof");
}

} // namespace reelsmith::media
