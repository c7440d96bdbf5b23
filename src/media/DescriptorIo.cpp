// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/DescriptorIo.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

extern "C" {
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

namespace reelsmith::media {

namespace {

constexpr int bufferBytes = 64 * 1024;

} // namespace

DescriptorIo::DescriptorIo(int descriptor, Access access) : m_descriptor(descriptor) {
    auto* buffer = static_cast<unsigned char*>(av_malloc(bufferBytes));
    const bool writes = access == Access::ReadWrite;
    if (buffer)
        m_context =
            avio_alloc_context(buffer, bufferBytes, writes, this, read, writes ? write : nullptr, seek);
    if (!m_context) {
        av_free(buffer);
        throw std::bad_alloc();
    }
}

DescriptorIo::~DescriptorIo() {
    av_freep(&m_context->buffer);
    avio_context_free(&m_context);
}

std::int64_t DescriptorIo::sizeBytes() const {
    struct stat status {};
    return ::fstat(m_descriptor, &status) == 0 ? status.st_size : 0;
}

void DescriptorIo::stopFetching() {
    m_fetchlessSize = sizeBytes();
    m_context->direct = 1;
}

void DescriptorIo::leaveGapFor(const std::uint8_t* content, int size) {
    m_context->direct = 1;
    m_leftOut = {content, size};
    m_gap.reset();
}

int DescriptorIo::passOver(std::uint8_t* buffer, int size) {
    const std::int64_t left = *m_fetchlessSize - m_position;
    if (left <= 0)
        return AVERROR_EOF;
    // Whoever looks for a header must not find one of something that lay here before.
    constexpr int longestHeader = 64;
    const int count = static_cast<int>(std::min<std::int64_t>(size, left));
    std::memset(buffer, 0, static_cast<std::size_t>(std::min(count, longestHeader)));
    m_position += count;
    return count;
}

int DescriptorIo::read(void* self, std::uint8_t* buffer, int size) {
    auto* io = static_cast<DescriptorIo*>(self);
    if (io->m_fetchlessSize)
        return io->passOver(buffer, size);
    ssize_t count = 0;
    do {
        count = ::pread(io->m_descriptor, buffer, static_cast<std::size_t>(size), io->m_position);
    } while (count < 0 && errno == EINTR);
    if (count < 0)
        return AVERROR(errno);
    if (count == 0)
        return AVERROR_EOF;
    io->m_position += count;
    return static_cast<int>(count);
}

int DescriptorIo::write(void* self, std::uint8_t* buffer, int size) {
    auto* io = static_cast<DescriptorIo*>(self);
    if (io->m_leftOut == std::pair<const std::uint8_t*, int>(buffer, size)) {
        io->m_leftOut = {};
        io->m_gap = io->m_position;
        io->m_position += size;
        return size;
    }
    int written = 0;
    while (written < size) {
        const ssize_t count = ::pwrite(io->m_descriptor, buffer + written,
                                       static_cast<std::size_t>(size - written), io->m_position);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return AVERROR(errno);
        written += static_cast<int>(count);
        io->m_position += count;
    }
    return written;
}

std::int64_t DescriptorIo::seek(void* self, std::int64_t offset, int whence) {
    auto* io = static_cast<DescriptorIo*>(self);
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return io->sizeBytes();
    case SEEK_CUR:
        offset += io->m_position;
        break;
    case SEEK_END:
        offset += io->sizeBytes();
        break;
    default:
        break;
    }
    if (offset < 0)
        return AVERROR(EINVAL);
    io->m_position = offset;
    return offset;
}

} // namespace reelsmith::media
