// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Probe.h"

#include "media/MovieHeader.h"

#include <algorithm>
#include <cctype>
#include <cstring>

extern "C" {
#include <libavutil/dovi_meta.h>
#include <libavutil/pixdesc.h>
}

namespace reelsmith::media {

namespace {

TrackKind kindOf(const AVStream* stream) {
    switch (stream->codecpar->codec_type) {
    case AVMEDIA_TYPE_VIDEO:
        return TrackKind::Video;
    case AVMEDIA_TYPE_AUDIO:
        return TrackKind::Audio;
    case AVMEDIA_TYPE_SUBTITLE:
        return TrackKind::Subtitle;
    default:
        return TrackKind::Other;
    }
}

bool isEncrypted(const AVStream* stream) {
    const std::uint32_t tag = stream->codecpar->codec_tag;
    for (const char* protectedEntry : {"encv", "enca", "encs", "drmi", "drms"}) {
        if (tag == MKTAG(protectedEntry[0], protectedEntry[1], protectedEntry[2], protectedEntry[3]))
            return true;
    }
    return av_stream_get_side_data(stream, AV_PKT_DATA_ENCRYPTION_INIT_INFO, nullptr) != nullptr;
}

std::string languageOf(const AVStream* stream) {
    const AVDictionaryEntry* entry = av_dict_get(stream->metadata, "language", nullptr, 0);
    std::string language = entry ? entry->value : "";
    std::transform(language.begin(), language.end(), language.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return language == "und" ? std::string() : language;
}

/// Whether a copy can keep the track's edits. Frames that edits hide are flagged in the index. A picture must
/// not have any: hidden ones in front mean a start between key frames. Sound may hide its run-in.
bool hasSimpleEdits(AVStream* stream) {
    const bool isSound = stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
    const int count = avformat_index_get_entries_count(stream);
    bool isShowing = false;
    for (int i = 0; i < count; ++i) {
        const bool isHidden = (avformat_index_get_entry(stream, i)->flags & AVINDEX_DISCARD_FRAME) != 0;
        if (isHidden && (isShowing || !isSound))
            return false;
        isShowing = isShowing || !isHidden;
    }
    return true;
}

/// What is left of the track's duration when the last sample of a whole index begins.
double lastSampleSeconds(AVStream* stream) {
    const int count = avformat_index_get_entries_count(stream);
    if (count == 0 || count != stream->nb_frames || stream->duration <= 0)
        return 0;
    const std::int64_t first = avformat_index_get_entry(stream, 0)->timestamp;
    const std::int64_t last = avformat_index_get_entry(stream, count - 1)->timestamp;
    return std::max(0.0, static_cast<double>(first + stream->duration - last) * av_q2d(stream->time_base));
}

/// Dolby Vision's profile 7 has an HDR10 base whatever its compatibility field says; else 0 there means
/// "none".
bool hasForeignBaseLayer(const AVStream* stream) {
    size_t size = 0;
    const auto* data = av_stream_get_side_data(stream, AV_PKT_DATA_DOVI_CONF, &size);
    if (!data || size < sizeof(AVDOVIDecoderConfigurationRecord))
        return false;
    AVDOVIDecoderConfigurationRecord record;
    std::memcpy(&record, data, sizeof record);
    return record.dv_bl_signal_compatibility_id == 0 && record.dv_profile != 7;
}

void describeVideo(Track& track, AVFormatContext* context, AVStream* stream) {
    const AVCodecParameters* codec = stream->codecpar;
    track.width = codec->width;
    track.height = codec->height;
    const AVRational aspect = av_guess_sample_aspect_ratio(context, stream, nullptr);
    const double ratio = aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1;
    constexpr double strangest = 16;
    if (ratio > 1 / strangest && ratio < strangest && aspect.num > 0)
        track.pixelAspect = aspect;
    const AVRational rate = stream->avg_frame_rate.num > 0 && stream->avg_frame_rate.den > 0
                                ? stream->avg_frame_rate
                                : av_guess_frame_rate(context, stream, nullptr);
    track.frameRate = rate.num > 0 && rate.den > 0 ? av_q2d(rate) : 0;
    size_t size = 0;
    const auto* matrix = av_stream_get_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
    if (matrix && size >= sizeof track.displayMatrix)
        std::memcpy(track.displayMatrix.data(), matrix, sizeof track.displayMatrix);
    track.hasForeignBaseLayer = hasForeignBaseLayer(stream);
}

Track describe(AVFormatContext* context, AVStream* stream) {
    const AVCodecParameters* codec = stream->codecpar;
    Track track;
    track.index = stream->index;
    track.kind = kindOf(stream);
    track.codec = codec->codec_id;
    track.profile = codec->profile;
    track.hasDecoder = avcodec_find_decoder(codec->codec_id) != nullptr;
    track.isEncrypted = isEncrypted(stream);
    track.isCoverArt =
        (stream->disposition & (AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS)) != 0;
    track.isDefault = (stream->disposition & AV_DISPOSITION_DEFAULT) != 0;
    track.isForSome = (stream->disposition & (AV_DISPOSITION_VISUAL_IMPAIRED |
                                              AV_DISPOSITION_HEARING_IMPAIRED | AV_DISPOSITION_COMMENT)) != 0;
    track.hasSimpleEdits = hasSimpleEdits(stream);
    track.language = languageOf(stream);
    track.timeBase = stream->time_base;
    track.bitRate = codec->bit_rate;
    if (stream->start_time != AV_NOPTS_VALUE)
        track.startSeconds = static_cast<double>(stream->start_time) * av_q2d(stream->time_base);
    track.lastSampleSeconds = lastSampleSeconds(stream);
    if (track.kind == TrackKind::Video)
        describeVideo(track, context, stream);
    if (track.kind == TrackKind::Audio) {
        track.channels = codec->ch_layout.nb_channels;
        track.sampleRate = codec->sample_rate;
    }
    return track;
}

/// A track without samples beside one of its kind with samples: only then does a missing count mean "none",
/// since fragmented files count nothing in advance.
void findEmptyTracks(MediaInfo& info, const AVFormatContext* context) {
    if (!isNamed(context, "mp4"))
        return;
    const auto isCounted = [context](const Track& track) {
        AVStream* stream = context->streams[track.index];
        return stream->nb_frames > 0 || avformat_index_get_entries_count(stream) > 0;
    };
    for (Track& track : info.tracks) {
        track.hasSamples =
            isCounted(track) || std::none_of(info.tracks.begin(), info.tracks.end(), [&](const Track& other) {
                return other.kind == track.kind && isCounted(other);
            });
    }
}

void findPrograms(MediaInfo& info, const AVFormatContext* context) {
    for (unsigned number = 0; number < std::min(context->nb_programs, 64U); ++number) {
        const AVProgram& program = *context->programs[number];
        for (unsigned i = 0; i < program.nb_stream_indexes; ++i) {
            if (program.stream_index[i] < info.tracks.size())
                info.tracks[program.stream_index[i]].programs |= std::uint64_t{1} << number;
        }
    }
}

void describeDuration(MediaInfo& info, const AVFormatContext* context, int descriptor) {
    if (context->duration <= 0)
        return;
    const auto firstVideo = std::find_if(info.tracks.begin(), info.tracks.end(), [](const Track& track) {
        return track.kind == TrackKind::Video && !track.isCoverArt;
    });
    info.durationTimescale = AV_TIME_BASE;
    if (isNamed(context, "mp4"))
        info.durationTimescale = movieTimescale(descriptor).value_or(AV_TIME_BASE);
    else if (firstVideo != info.tracks.end() && firstVideo->timeBase.num == 1)
        info.durationTimescale = firstVideo->timeBase.den;
    info.durationUnits = av_rescale(context->duration, info.durationTimescale, AV_TIME_BASE);
    if (info.durationUnits < 0) // more than its number holds
        info.durationUnits = info.durationTimescale = 0;
}

} // namespace

MediaInfo probe(const Source& source) {
    AVFormatContext* context = source.context();
    MediaInfo info;
    info.container = context->iformat->name;
    info.sizeBytes = source.sizeBytes();
    info.hasClock = !(context->iformat->flags & AVFMT_NOTIMESTAMPS);
    for (unsigned i = 0; i < context->nb_streams; ++i)
        info.tracks.push_back(describe(context, context->streams[i]));
    findEmptyTracks(info, context);
    findPrograms(info, context);
    if (isNamed(context, "mp4") && hasSeveralDescriptions(source.descriptor())) {
        for (Track& track : info.tracks)
            track.hasOneDescription = false;
    }
    describeDuration(info, context, source.descriptor());
    return info;
}

} // namespace reelsmith::media
