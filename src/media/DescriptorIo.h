// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <utility>

extern "C" {
#include <libavformat/avio.h>
}

namespace reelsmith::media {

/// FFmpeg's input and output on a descriptor that somebody else opened and owns.
///
/// Positions are kept here, not in the descriptor (pread, pwrite): two of these on one descriptor do not
/// disturb each other. Used by one thread at a time, except for position().
class DescriptorIo {
public:
    enum class Access { Read, ReadWrite };

    DescriptorIo(int descriptor, Access access);
    ~DescriptorIo();
    DescriptorIo(const DescriptorIo&) = delete;
    DescriptorIo& operator=(const DescriptorIo&) = delete;

    /// Stays this object's.
    AVIOContext* context() const { return m_context; }

    int descriptor() const { return m_descriptor; }

    /// Where the next byte is read or written. Any thread.
    std::int64_t position() const { return m_position; }

    /// Bytes in the file now; 0 when the descriptor does not say.
    std::int64_t sizeBytes() const;

    /// From here on reading only moves on, as far as the file goes: what is read is not fetched, and zeros
    /// stand at its start. For finding out where things are.
    void stopFetching();

    /// The next write of exactly these bytes leaves them out: a gap of their size, for others to fill.
    void leaveGapFor(const std::uint8_t* content, int size);

    /// Where that gap begins; nothing where there has been no such write.
    std::optional<std::int64_t> gap() const { return m_gap; }

private:
    static int read(void* self, std::uint8_t* buffer, int size);
    int passOver(std::uint8_t* buffer, int size);
    static int write(void* self, std::uint8_t* buffer, int size);
    static std::int64_t seek(void* self, std::int64_t offset, int whence);

    int m_descriptor;
    std::atomic<std::int64_t> m_position = 0;
    std::optional<std::int64_t> m_fetchlessSize; ///< of the file, once nothing is fetched any more
    std::pair<const std::uint8_t*, int> m_leftOut;
    std::optional<std::int64_t> m_gap;
    AVIOContext* m_context = nullptr;
};

} // namespace reelsmith::media
