// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/Messages.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>

namespace reelsmith::mediaworker {

namespace {

constexpr std::size_t maximumTextBytes = 4000;
constexpr std::size_t maximumLanguages = 32;
// FFmpeg's own durations end a little below.
constexpr std::int64_t maximumSeconds = 10'000'000'000'000;

/// Appends values in the machine's own byte order: both ends run on one machine.
class Writer {
public:
    template<typename T>
    void put(const T& value) {
        static_assert(std::is_arithmetic_v<T> || std::is_enum_v<T>);
        const auto* bytes = reinterpret_cast<const std::byte*>(&value);
        m_bytes.insert(m_bytes.end(), bytes, bytes + sizeof value);
    }
    void put(const std::string& text) {
        const std::size_t size = std::min(text.size(), maximumTextBytes);
        put(static_cast<std::uint32_t>(size));
        const auto* bytes = reinterpret_cast<const std::byte*>(text.data());
        m_bytes.insert(m_bytes.end(), bytes, bytes + size);
    }
    void put(const Time& time) {
        put(time.value);
        put(time.timescale);
    }
    std::vector<std::byte> take() { return std::move(m_bytes); }

private:
    std::vector<std::byte> m_bytes;
};

/// Takes values off in the same order; after the first one missing or out of range, everything is.
class Reader {
public:
    Reader(const std::byte* data, std::size_t size) : m_data(data), m_left(size) {}

    template<typename T>
    void take(T& value) {
        static_assert(std::is_arithmetic_v<T> && !std::is_same_v<T, bool>);
        if (!need(sizeof value))
            return;
        std::memcpy(&value, m_data, sizeof value);
        advance(sizeof value);
        if constexpr (std::is_floating_point_v<T>)
            check(std::isfinite(value));
    }
    void take(bool& value) {
        std::uint8_t byte = 0;
        take(byte);
        check(byte <= 1);
        value = byte == 1;
    }
    void take(std::string& text) {
        std::uint32_t size = 0;
        take(size);
        check(size <= maximumTextBytes);
        if (!need(size))
            return;
        text.assign(reinterpret_cast<const char*>(m_data), size);
        advance(size);
    }
    void take(Time& time) {
        take(time.value);
        take(time.timescale);
        check(time.timescale >= 0);
    }
    void check(bool good) { m_good = m_good && good; }
    bool isWhole() const { return m_good && m_left == 0; }

private:
    bool need(std::size_t size) {
        check(m_left >= size);
        return m_good;
    }
    void advance(std::size_t size) {
        m_data += size;
        m_left -= size;
    }

    const std::byte* m_data;
    std::size_t m_left;
    bool m_good = true;
};

void write(Writer&, const ProbeRequest&) {}
void read(Reader&, ProbeRequest&) {}

void write(Writer& writer, const ThumbnailRequest& request) {
    writer.put(request.time);
    writer.put(request.maximumWidth);
    writer.put(request.maximumHeight);
}
void read(Reader& reader, ThumbnailRequest& request) {
    reader.take(request.time);
    reader.take(request.maximumWidth);
    reader.take(request.maximumHeight);
    reader.check(request.maximumWidth > 0 && request.maximumHeight > 0);
}

void write(Writer& writer, const ExportRequest& request) {
    writer.put(static_cast<std::uint8_t>(request.preset));
    const std::size_t count = std::min(request.languages.size(), maximumLanguages);
    writer.put(static_cast<std::uint32_t>(count));
    for (std::size_t i = 0; i < count; ++i)
        writer.put(request.languages[i].substr(0, 16));
}
void read(Reader& reader, ExportRequest& request) {
    std::uint8_t preset = 0;
    std::uint32_t count = 0;
    reader.take(preset);
    reader.take(count);
    reader.check(preset < media::presetCount && count <= maximumLanguages);
    request.preset = static_cast<Preset>(preset);
    for (std::uint32_t i = 0; i < std::min<std::uint32_t>(count, maximumLanguages); ++i)
        reader.take(request.languages.emplace_back());
}

void write(Writer& writer, const AssetProperties& properties) {
    writer.put(static_cast<std::uint8_t>(properties.isPlayable));
    writer.put(static_cast<std::uint8_t>(properties.isExportable));
    writer.put(properties.duration);
    writer.put(static_cast<std::uint8_t>(properties.videoTrack.has_value()));
    if (properties.videoTrack) {
        writer.put(properties.videoTrack->naturalWidth);
        writer.put(properties.videoTrack->naturalHeight);
        for (const double value : properties.videoTrack->transform)
            writer.put(value);
    }
    for (const std::int64_t bytes : properties.estimatedBytes)
        writer.put(bytes);
    writer.put(properties.problem);
}
void read(Reader& reader, AssetProperties& properties) {
    bool hasVideoTrack = false;
    reader.take(properties.isPlayable);
    reader.take(properties.isExportable);
    reader.take(properties.duration);
    const Time& duration = properties.duration;
    reader.check(duration.value >= 0 && duration.value / std::max(duration.timescale, 1) <= maximumSeconds);
    reader.take(hasVideoTrack);
    if (hasVideoTrack) {
        VideoTrackProperties& track = properties.videoTrack.emplace();
        reader.take(track.naturalWidth);
        reader.take(track.naturalHeight);
        for (double& value : track.transform)
            reader.take(value);
    }
    for (std::int64_t& bytes : properties.estimatedBytes) {
        reader.take(bytes);
        reader.check(bytes >= 0);
    }
    reader.take(properties.problem);
}

void write(Writer& writer, const ThumbnailReply& reply) {
    writer.put(reply.width);
    writer.put(reply.height);
    writer.put(reply.problem);
}
void read(Reader& reader, ThumbnailReply& reply) {
    reader.take(reply.width);
    reader.take(reply.height);
    reader.check(reply.width >= 0 && reply.height >= 0);
    reader.take(reply.problem);
}

void write(Writer& writer, const ExportProgress& progress) {
    writer.put(progress.fraction);
}
void read(Reader& reader, ExportProgress& progress) {
    reader.take(progress.fraction);
    reader.check(progress.fraction >= 0 && progress.fraction <= 1);
}

void write(Writer& writer, const ExportFinished& finished) {
    writer.put(finished.problem);
    writer.put(finished.warnings);
}
void read(Reader& reader, ExportFinished& finished) {
    reader.take(finished.problem);
    reader.take(finished.warnings);
}

template<std::size_t index = 0>
bool readAlternative(Reader& reader, std::size_t wanted, Message& message) {
    if constexpr (index < std::variant_size_v<Message>) {
        if (wanted != index)
            return readAlternative<index + 1>(reader, wanted, message);
        read(reader, message.emplace<index>());
        return reader.isWhole();
    }
    return false;
}

} // namespace

std::vector<std::byte> encode(const Message& message) {
    Writer writer;
    writer.put(static_cast<std::uint8_t>(message.index()));
    std::visit([&writer](const auto& value) { write(writer, value); }, message);
    return writer.take();
}

std::optional<Message> decode(const std::byte* data, std::size_t size) {
    Reader reader(data, size);
    std::uint8_t index = 0;
    reader.take(index);
    Message message;
    if (!readAlternative(reader, index, message))
        return std::nullopt;
    return message;
}

} // namespace reelsmith::mediaworker
