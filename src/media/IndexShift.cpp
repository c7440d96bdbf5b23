// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/IndexShift.h"

#include "media/BoxWalk.h"

#include <algorithm>
#include <unistd.h>
#include <utility>
#include <vector>

namespace reelsmith::media {

namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::int64_t boxHeaderBytes = 8;

/// The positions of a track's chunks (ISO/IEC 14496-12, 8.7.5), big-endian numbers in a row.
struct OffsetTable {
    std::int64_t start = 0;
    std::int64_t count = 0;
    int width = 4;
};

std::vector<OffsetTable> offsetTables(int descriptor, const Box& index) {
    std::vector<OffsetTable> tables;
    walkBoxes(descriptor, index.contentStart, index.end, [&](const Box& track) {
        Box inner = track;
        for (const char* type : {"mdia", "minf", "stbl"})
            inner = findBox(descriptor, inner.contentStart, inner.end, type).value_or(Box());
        for (const auto& [type, width] : {std::pair("stco", 4), std::pair("co64", 8)}) {
            if (const auto box = findBox(descriptor, inner.contentStart, inner.end, type)) {
                const auto count = readBigEndian(descriptor, box->contentStart + 4, 4);
                tables.push_back({box->contentStart + 8, static_cast<std::int64_t>(count), width});
            }
        }
        return true;
    });
    return tables;
}

bool canHold(int descriptor, const OffsetTable& table, std::int64_t bytes) {
    if (table.width == 8 || table.count == 0)
        return true;
    const auto last = readBigEndian(descriptor, table.start + (table.count - 1) * table.width, table.width);
    return last + static_cast<std::uint64_t>(bytes) <= UINT32_MAX;
}

bool read(int descriptor, std::int64_t position, Bytes& bytes) {
    return ::pread(descriptor, bytes.data(), bytes.size(), position) == std::ssize(bytes);
}

bool write(int descriptor, std::int64_t position, const Bytes& bytes) {
    return ::pwrite(descriptor, bytes.data(), bytes.size(), position) == std::ssize(bytes);
}

void addTo(unsigned char* number, int width, std::int64_t addend) {
    auto carried = static_cast<std::uint64_t>(addend);
    for (int i = width - 1; i >= 0; --i) {
        carried += number[i];
        number[i] = static_cast<unsigned char>(carried);
        carried >>= 8;
    }
}

bool add(int descriptor, const OffsetTable& table, std::int64_t bytes) {
    Bytes numbers(static_cast<std::size_t>(table.count * table.width));
    if (!read(descriptor, table.start, numbers))
        return false;
    for (std::int64_t i = 0; i < table.count; ++i)
        addTo(numbers.data() + i * table.width, table.width, bytes);
    return write(descriptor, table.start, numbers);
}

Bytes emptyBoxHeader(std::int64_t size) {
    Bytes header{0, 0, 0, 0, 'f', 'r', 'e', 'e'};
    addTo(header.data(), 4, size);
    return header;
}

} // namespace

Result<void> pushMediaData(int descriptor, std::int64_t bytes) {
    const std::int64_t end = ::lseek(descriptor, 0, SEEK_END);
    const Box index = findBox(descriptor, 0, end, "moov").value_or(Box());
    const auto tables = offsetTables(descriptor, index);
    const auto holds = [&](const OffsetTable& table) { return canHold(descriptor, table, bytes); };
    if (bytes < boxHeaderBytes || !std::all_of(tables.begin(), tables.end(), holds))
        return {};
    Bytes behind(static_cast<std::size_t>(end - index.end));
    bool isDone = read(descriptor, index.end, behind) && write(descriptor, index.end + bytes, behind) &&
                  write(descriptor, index.end, emptyBoxHeader(bytes));
    for (const OffsetTable& table : tables)
        isDone = isDone && add(descriptor, table, bytes);
    if (!isDone)
        return failure(ErrorCode::WriteFailed, "The result's index cannot be corrected");
    return {};
}

} // namespace reelsmith::media
