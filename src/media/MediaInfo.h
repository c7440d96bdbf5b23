// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

extern "C" {
#include <libavcodec/codec_id.h>
#include <libavutil/rational.h>
}

namespace reelsmith::media {

enum class TrackKind { Video, Audio, Subtitle, Other };

/// What a container and its first packets tell about one track. Plain data, so that what happens to a track
/// can be decided, and tested, without a file.
struct Track {
    int index = 0;
    TrackKind kind = TrackKind::Other;
    AVCodecID codec = AV_CODEC_ID_NONE;
    int profile = -99; ///< FFmpeg's number; -99 when unknown
    bool hasDecoder = false;
    bool hasSamples = true; ///< false only where the container says that there are none
    bool isEncrypted = false;
    bool isCoverArt = false;
    bool isDefault = false;
    bool isForSome = false;     ///< a description or sound for the impaired, or a commentary
    std::uint64_t programs = 0; ///< of a broadcast that it belongs to, a bit for each of the first 64
    /// Kept as it stands by a copy: at most one edit, which starts on a frame that needs no earlier one.
    bool hasSimpleEdits = true;
    /// False where samples may be described in several ways, of which a copy keeps the first alone.
    bool hasOneDescription = true;
    /// Whether the first packet is a key frame; true where nobody has looked.
    bool startsOnKeyFrame = true;
    std::string language; ///< as the container writes it, in lower case; empty when unknown
    AVRational timeBase{1, 1};
    std::int64_t bitRate = 0; ///< bits a second; 0 when unknown
    double startSeconds = 0;  ///< of the first sample shown, on the container's clock
    /// How long the last sample lasts by the container's index, 0 when that does not say: packets may not say
    /// it either.
    double lastSampleSeconds = 0;

    // Video
    int width = 0; ///< in pixels, as stored
    int height = 0;
    AVRational pixelAspect{1, 1}; ///< always positive
    double frameRate = 0;         ///< mean, frames a second; 0 when unknown
    std::array<std::int32_t, 9> displayMatrix{65536, 0, 0, 0, 65536, 0, 0, 0, 1 << 30};
    bool hasForeignBaseLayer = false; ///< Dolby Vision without an HDR10, HLG or SDR base

    // Audio
    int channels = 0;
    int sampleRate = 0;
};

/// What a file holds.
struct MediaInfo {
    std::vector<Track> tracks;
    std::string container;              ///< FFmpeg's name of the demuxer
    std::int64_t durationUnits = 0;     ///< in units of 1/durationTimescale; 0 when unknown
    std::int32_t durationTimescale = 0; ///< the movie timescale of MP4, of the first video track elsewhere
    std::int64_t sizeBytes = 0;
    bool hasClock = true; ///< false for elementary streams, whose packets carry no times

    double durationSeconds() const {
        return durationTimescale > 0 ? static_cast<double>(durationUnits) / durationTimescale : 0;
    }
};

} // namespace reelsmith::media
