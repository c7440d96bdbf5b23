// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/RangeMover.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <numeric>
#include <unistd.h>

namespace reelsmith::media {

namespace {

/// What is copied between two reports of progress.
constexpr std::int64_t mostAtOnce = 32 << 20;

constexpr std::size_t bufferBytes = 1 << 20;

/// What the kernel moves in one piece if it can, and a whole number of any file system's blocks.
constexpr std::int64_t blockBytes = 64 << 10;

/// From here on a block more in the file does not count.
constexpr std::int64_t muchBytes = 1000 * blockBytes;

/// How much of a range to copy in one go: where blocks become blocks, these apart from what lies before and
/// behind them.
std::int64_t nextSize(const RangeMover::Range& range) {
    if ((range.to - range.from) % blockBytes != 0)
        return std::min(range.sizeBytes, mostAtOnce);
    const std::int64_t intoBlock = range.from % blockBytes;
    if (intoBlock > 0)
        return std::min(range.sizeBytes, blockBytes - intoBlock);
    if (range.sizeBytes > blockBytes)
        return std::min(range.sizeBytes - range.sizeBytes % blockBytes, mostAtOnce);
    return range.sizeBytes;
}

template<typename Call>
ssize_t unlessInterrupted(Call call) {
    ssize_t count = 0;
    do {
        count = call();
    } while (count < 0 && errno == EINTR);
    return count;
}

tl::unexpected<Error> writeFailure() {
    return failure(ErrorCode::WriteFailed,
                   std::string("The result cannot be written: ") + std::strerror(errno));
}

} // namespace

void RangeMover::add(const Range& range) {
    if (!m_ranges.empty()) {
        Range& last = m_ranges.back();
        if (last.from + last.sizeBytes == range.from && last.to + last.sizeBytes == range.to) {
            last.sizeBytes += range.sizeBytes;
            return;
        }
    }
    m_ranges.push_back(range);
}

std::int64_t RangeMover::totalBytes() const {
    return std::accumulate(m_ranges.begin(), m_ranges.end(), std::int64_t{0},
                           [](std::int64_t sum, const Range& range) { return sum + range.sizeBytes; });
}

std::int64_t RangeMover::bytesToAlignment(std::int64_t shiftBytes) const {
    if (totalBytes() < muchBytes)
        return 0;
    const std::int64_t ahead = (m_ranges.front().to + shiftBytes - m_ranges.front().from) % blockBytes;
    return (blockBytes - ahead) % blockBytes;
}

Result<void> RangeMover::move(std::int64_t shiftBytes, const std::function<void(double)>& progress) {
    const std::int64_t total = totalBytes();
    std::int64_t moved = 0;
    for (Range range : m_ranges) {
        range.to += shiftBytes;
        while (range.sizeBytes > 0) {
            const auto count = moveSome(range);
            if (!count)
                return tl::unexpected(count.error());
            range = {range.from + *count, range.to + *count, range.sizeBytes - *count};
            moved += *count;
            progress(static_cast<double>(moved) / static_cast<double>(total));
        }
    }
    return {};
}

Result<std::int64_t> RangeMover::moveSome(const Range& range) {
    if (m_isKernelWilling) {
        const auto size = static_cast<std::size_t>(nextSize(range));
        const ssize_t count = unlessInterrupted([&] {
            loff_t from = range.from;
            loff_t to = range.to;
            return ::copy_file_range(m_source, &from, m_destination, &to, size, 0);
        });
        if (count > 0)
            return count;
        if (count < 0 && (errno == ENOSPC || errno == EFBIG || errno == EDQUOT))
            return writeFailure();
        // Not between these file systems, or not on this kernel; some say so by copying nothing.
        m_isKernelWilling = false;
    }
    return moveThroughBuffer(range);
}

Result<std::int64_t> RangeMover::moveThroughBuffer(const Range& range) {
    m_buffer.resize(bufferBytes);
    const auto size = std::min(static_cast<std::size_t>(range.sizeBytes), bufferBytes);
    const ssize_t count =
        unlessInterrupted([&] { return ::pread(m_source, m_buffer.data(), size, range.from); });
    if (count < 0)
        return failure(ErrorCode::InvalidSource,
                       std::string("The source cannot be read: ") + std::strerror(errno));
    if (count == 0)
        return failure(ErrorCode::InvalidSource, "The source has become shorter");
    const ssize_t written = unlessInterrupted(
        [&] { return ::pwrite(m_destination, m_buffer.data(), static_cast<std::size_t>(count), range.to); });
    if (written <= 0)
        return writeFailure();
    return written;
}

} // namespace reelsmith::media
