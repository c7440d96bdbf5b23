// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Preset.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What the application and a media worker say to each other. One message is one datagram (see Channel);
/// descriptors travel beside it: requests carry the source, then the output where there is one.
namespace reelsmith::mediaworker {

using media::Preset;

/// A time as value / timescale seconds; a timescale of 0 means "unknown".
struct Time {
    std::int64_t value = 0;
    std::int32_t timescale = 0;
    bool operator==(const Time&) const = default;
};

/// The first video track of an asset: its size in pixels with square pixels, before `transform` turns it.
struct VideoTrackProperties {
    double naturalWidth = 0;
    double naturalHeight = 0;
    /// Column by column as an affine transform has them: a, b, c, d; (x, y) becomes (a x + c y, b x + d y).
    std::array<double, 4> transform{1, 0, 0, 1};
    bool operator==(const VideoTrackProperties&) const = default;
};

/// Asks for an AssetProperties. Descriptors: source.
struct ProbeRequest {
    bool operator==(const ProbeRequest&) const = default;
};

/// Asks for a picture as RGBA (8 bit, rows without padding, top first), upright, written from the start of
/// the output. Never larger than the bounds, never enlarged. Shown is the first frame at or after `time`, or
/// the last one before it. Descriptors: source, output.
struct ThumbnailRequest {
    Time time;
    std::int32_t maximumWidth = 0;
    std::int32_t maximumHeight = 0;
    bool operator==(const ThumbnailRequest&) const = default;
};

/// Asks for an MP4 file. Descriptors: source (readable), output (empty; readable and writable).
/// `languages`: the user's, best first, as ISO 639-2 codes ("deu", "eng").
struct ExportRequest {
    Preset preset = Preset::Medium;
    std::vector<std::string> languages;
    bool operator==(const ExportRequest&) const = default;
};

/// Answer to a ProbeRequest, also for what cannot be read: then nothing is playable and `problem` says why.
struct AssetProperties {
    bool isPlayable = false;
    bool isExportable = false;
    Time duration;
    std::optional<VideoTrackProperties> videoTrack;
    /// Bytes that an export would come to, by preset; 0 where unknown.
    std::array<std::int64_t, media::presetCount> estimatedBytes{};
    std::string problem;
    bool operator==(const AssetProperties&) const = default;
};

/// Answer to a ThumbnailRequest: the size of the picture written; 0 x 0 and a `problem` where there is none.
struct ThumbnailReply {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::string problem;
    bool operator==(const ThumbnailReply&) const = default;
};

/// Sent while an export runs: 0…1, never falling.
struct ExportProgress {
    double fraction = 0;
    bool operator==(const ExportProgress&) const = default;
};

/// The last message of an export. An empty `problem` means that the output stands, complete and checked.
/// `warnings` (decode errors passed over, tracks left out) are for the log.
struct ExportFinished {
    std::string problem;
    std::string warnings;
    bool operator==(const ExportFinished&) const = default;
};

using Message = std::variant<ProbeRequest, ThumbnailRequest, ExportRequest, AssetProperties, ThumbnailReply,
                             ExportProgress, ExportFinished>;

/// No message is longer; texts are cut to fit.
inline constexpr std::size_t maximumMessageBytes = 16 * 1024;

std::vector<std::byte> encode(const Message& message);

/// The message, or nothing where the bytes are not exactly one whole message with values in range.
std::optional<Message> decode(const std::byte* data, std::size_t size);

} // namespace reelsmith::mediaworker
