// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace reelsmith::media {

/// A box of an MP4 file (ISO/IEC 14496-12, 4.2): its type, and where its content lies in the file.
struct Box {
    std::string type;
    std::int64_t contentStart = 0;
    std::int64_t end = 0;
};

/// Visits the boxes that lie one after another between two positions, until `visit` returns false or one
/// makes no sense.
void walkBoxes(int descriptor, std::int64_t start, std::int64_t end,
               const std::function<bool(const Box&)>& visit);

/// The first box of a type among those that lie one after another between two positions.
std::optional<Box> findBox(int descriptor, std::int64_t start, std::int64_t end, const std::string& type);

/// A big-endian number of so many bytes at a position; 0 where the file ends before it.
std::uint64_t readBigEndian(int descriptor, std::int64_t position, int byteCount);

} // namespace reelsmith::media
