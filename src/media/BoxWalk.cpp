// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/BoxWalk.h"

#include <algorithm>
#include <array>
#include <unistd.h>

namespace reelsmith::media {

std::uint64_t readBigEndian(int descriptor, std::int64_t position, int byteCount) {
    std::array<unsigned char, 8> bytes{};
    const auto wanted = static_cast<std::size_t>(std::clamp(byteCount, 0, 8));
    if (::pread(descriptor, bytes.data(), wanted, position) != static_cast<ssize_t>(wanted))
        return 0;
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < wanted; ++i)
        value = value << 8 | bytes[i];
    return value;
}

void walkBoxes(int descriptor, std::int64_t start, std::int64_t end,
               const std::function<bool(const Box&)>& visit) {
    constexpr std::int64_t shortHeader = 8;
    constexpr std::int64_t longHeader = 16;
    while (start + shortHeader <= end) {
        auto size = static_cast<std::int64_t>(readBigEndian(descriptor, start, 4));
        std::int64_t header = shortHeader;
        if (size == 1) {
            size = static_cast<std::int64_t>(readBigEndian(descriptor, start + shortHeader, 8));
            header = longHeader;
        } else if (size == 0) {
            size = end - start;
        }
        if (size < header || size > end - start)
            size = size < header ? 0 : end - start;
        if (size == 0)
            return;
        Box box{std::string(4, '\0'), start + header, start + size};
        const auto type = readBigEndian(descriptor, start + 4, 4);
        for (std::size_t i = 0; i < 4; ++i)
            box.type[i] = static_cast<char>(type >> (24 - 8 * i) & 0xff);
        if (!visit(box))
            return;
        start += size;
    }
}

std::optional<Box> findBox(int descriptor, std::int64_t start, std::int64_t end, const std::string& type) {
    std::optional<Box> found;
    walkBoxes(descriptor, start, end, [&](const Box& box) {
        if (box.type == type)
            found = box;
        return !found;
    });
    return found;
}

} // namespace reelsmith::media
