// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Source.h"

#include "media/Colour.h"
#include "media/FirstPicture.h"
#include "media/Limits.h"
#include "media/MovieHeader.h"

#include <algorithm>
#include <cstring>
#include <numeric>

extern "C" {
#include <libavutil/dict.h>
#include <libavutil/opt.h>
}

namespace reelsmith::media {

namespace {

/// Containers of video files. Not here: still pictures, playlists, captures, network and text formats.
constexpr const char* containers =
    "mov,mp4,m4a,3gp,3g2,mj2,matroska,webm,avi,flv,live_flv,mpegts,mpeg,asf,ogg,h264,hevc,ivf,"
    "m4v,mpegvideo,dv,mxf,rm,nut,av1,obu,vc1,yuv4mpegpipe,h263,wtv,gxf,dirac,cavsvideo";

/// Consecutive read errors after which the rest of a file counts as lost.
constexpr int maximumReadErrors = 64;

/// In a broadcast's recording a track may say late how it is made: it begins late, or between key frames.
constexpr std::int64_t longLookBytes = 50 << 20;
constexpr std::int64_t longLookMicroseconds = 60'000'000;

bool lacksParameters(const AVFormatContext* context) {
    if (!(context->iformat->flags & AVFMT_TS_DISCONT))
        return false;
    return std::any_of(context->streams, context->streams + context->nb_streams, [](const AVStream* track) {
        const AVCodecParameters* codec = track->codecpar;
        const bool isPicture = codec->codec_type == AVMEDIA_TYPE_VIDEO;
        const bool isSound = codec->codec_type == AVMEDIA_TYPE_AUDIO;
        const bool isLacking =
            (isPicture && codec->width == 0) || (isSound && codec->ch_layout.nb_channels == 0);
        return isLacking && avcodec_find_decoder(codec->codec_id);
    });
}

int refuseNestedOpen(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
    return AVERROR(EACCES);
}

bool isDescribedByHeaders(const AVFormatContext* context) {
    const bool isIndexed = isNamed(context, "mp4") || isNamed(context, "matroska");
    if (!isIndexed || context->nb_streams == 0)
        return false;
    return std::all_of(context->streams, context->streams + context->nb_streams,
                       [context](const AVStream* track) {
                           const AVCodecParameters* codec = track->codecpar;
                           if (codec->codec_type != AVMEDIA_TYPE_VIDEO)
                               return true;
                           const bool hasDuration = track->duration > 0 || context->duration > 0;
                           return codec->codec_id != AV_CODEC_ID_NONE && codec->width > 0 &&
                                  codec->height > 0 && hasDuration;
                       });
}

/// Whether nobody on the way into an MP4 file looks at the packets.
bool isOpaque(const AVCodecParameters* codec) {
    if (codec->extradata_size == 0)
        return false;
    switch (codec->codec_id) {
    case AV_CODEC_ID_H264:
    case AV_CODEC_ID_HEVC:
        // The version of a configuration as MP4 has it; a byte stream's begins with a zero and is taken
        // apart.
        return codec->extradata[0] == 1;
    case AV_CODEC_ID_AAC:
        return true;
    default:
        return false;
    }
}

/// How long an MP4 file's sample lasts until the next one of its track or the track's end; 0 when unknown.
std::int64_t durationOf(const AVPacket& packet, AVStream* track) {
    const int at = av_index_search_timestamp(track, packet.dts, AVSEEK_FLAG_ANY | AVSEEK_FLAG_BACKWARD);
    const AVIndexEntry* first = avformat_index_get_entry(track, 0);
    const AVIndexEntry* next = avformat_index_get_entry(track, at + 1);
    if (next)
        return std::max<std::int64_t>(0, next->timestamp - packet.dts);
    const bool isTold = first && track->duration > 0;
    return isTold ? std::max<std::int64_t>(0, first->timestamp + track->duration - packet.dts) : 0;
}

} // namespace

bool isNamed(const AVFormatContext* context, const char* name) {
    return std::strstr(context->iformat->name, name) != nullptr;
}

Source::Source(int descriptor)
    : m_io(descriptor, DescriptorIo::Access::Read),
      m_context(avformat_alloc_context()),
      m_sizeBytes(m_io.sizeBytes()) {
    if (!m_context)
        throw std::bad_alloc();
    m_context->pb = m_io.context();
    m_context->flags |= AVFMT_FLAG_CUSTOM_IO;
    m_context->io_open = refuseNestedOpen;
    m_context->max_streams = maximumTracks;
}

Source::~Source() {
    avformat_close_input(&m_context);
}

Result<std::unique_ptr<Source>> Source::open(int descriptor, Detail detail) {
    auto source = open(descriptor, detail, Look::Usual);
    if (!source || detail == Detail::Passed || !lacksParameters((*source)->m_context))
        return source;
    auto lookedLonger = open(descriptor, detail, Look::Long);
    return lookedLonger ? std::move(lookedLonger) : std::move(source);
}

Result<std::unique_ptr<Source>> Source::open(int descriptor, Detail detail, Look look) {
    std::unique_ptr<Source> source(new Source(descriptor));
    if (look == Look::Long) {
        source->m_context->probesize = longLookBytes;
        source->m_context->max_analyze_duration = longLookMicroseconds;
    }
    if (source->m_sizeBytes == 0)
        return failure(ErrorCode::InvalidSource, "The file is empty");
    if (auto opened = source->openContainer(); !opened)
        return tl::unexpected(opened.error());
    const bool isPassed = detail == Detail::Passed;
    if (auto found = isPassed ? source->preparePassing() : source->findTracks(detail); !found)
        return tl::unexpected(found.error());
    for (unsigned i = 0; i < source->m_context->nb_streams; ++i)
        dropUnnamedColours(*source->m_context->streams[i]->codecpar);
    return source;
}

Result<void> Source::openContainer() {
    AVDictionary* options = nullptr;
    av_dict_set(&options, "format_whitelist", containers, 0);
    // A broadcast may move its tracks on the way.
    av_dict_set(&options, "merge_pmt_versions", "1", 0);
    const int result = avformat_open_input(&m_context, nullptr, nullptr, &options);
    av_dict_free(&options);
    if (result < 0)
        return ffmpegFailure(ErrorCode::InvalidSource, "The file is not a video file", result);
    return {};
}

Result<void> Source::findTracks(Detail detail) {
    if (detail == Detail::Headers && isDescribedByHeaders(m_context))
        return {};
    // A decoder thread for each track that is looked at costs more than the look itself.
    std::vector<AVDictionary*> options(m_context->nb_streams, nullptr);
    for (AVDictionary*& each : options) {
        av_dict_set(&each, "threads", "1", 0);
        av_dict_set_int(&each, "max_pixels", maximumPixels, 0);
    }
    const unsigned given = m_context->nb_streams;
    // What the container says of the colours is lost where a decoder looks and finds nothing.
    std::vector<ColourTags> told;
    for (unsigned i = 0; i < given; ++i) {
        dropUnnamedColours(*m_context->streams[i]->codecpar);
        told.push_back(coloursOf(*m_context->streams[i]->codecpar));
    }
    const int result = avformat_find_stream_info(m_context, options.data());
    for (unsigned i = 0; i < given; ++i) {
        av_dict_free(&options[i]);
        dropUnnamedColours(*m_context->streams[i]->codecpar);
        fillInColours(*m_context->streams[i]->codecpar, told[i]);
    }
    if (result < 0)
        return ffmpegFailure(ErrorCode::InvalidSource, "The file's tracks cannot be read", result);
    return {};
}

Result<void> Source::preparePassing() {
    m_tellsPositionsOnly = isNamed(m_context, "mp4");
    if (!isDescribedByHeaders(m_context) || (m_tellsPositionsOnly && hasFragments(descriptor())))
        return failure(ErrorCode::Unsupported, "The file has to be looked at more closely");
    // What FFmpeg would find out from the packets is known without.
    m_context->flags |= AVFMT_FLAG_NOPARSE | AVFMT_FLAG_NOFILLIN;
    if (m_tellsPositionsOnly)
        m_io.stopFetching();
    for (unsigned i = 0; i < m_context->nb_streams; ++i)
        preparePassing(static_cast<int>(i));
    return {};
}

void Source::preparePassing(int track) {
    AVCodecParameters* codec = m_context->streams[track]->codecpar;
    if (!isOpaque(codec))
        return;
    const bool isPicture = codec->codec_type == AVMEDIA_TYPE_VIDEO;
    if (isPicture && !m_tellsPositionsOnly) {
        const AVPacket* first = firstPacket(track);
        if (!first || first->duration == 0 || !describeByFirstPicture(*codec, *first))
            return;
    }
    m_passedTracks.emplace(track, MissingTimes(isPicture ? codec->video_delay : 0));
}

const AVPacket* Source::firstPacket(int track) {
    constexpr std::size_t mostAhead = 2000;
    constexpr std::int64_t mostBytesAhead = 64 << 20;
    const auto isFirst = [track](const PacketHandle& packet) { return packet->stream_index == track; };
    auto found = std::find_if(m_ahead.begin(), m_ahead.end(), isFirst);
    if (found != m_ahead.end())
        return found->get();
    auto bytes = std::accumulate(m_ahead.begin(), m_ahead.end(), std::int64_t{0},
                                 [](std::int64_t sum, const PacketHandle& each) { return sum + each->size; });
    while (m_ahead.size() < mostAhead && bytes < mostBytesAhead) {
        PacketHandle packet = readNext();
        if (!packet)
            break;
        bytes += packet->size;
        m_ahead.push_back(std::move(packet));
        if (isFirst(m_ahead.back()))
            return m_ahead.back().get();
    }
    return nullptr;
}

PacketHandle Source::readPacket() {
    PacketHandle packet;
    if (m_ahead.empty()) {
        packet = readNext();
    } else {
        packet = std::move(m_ahead.front());
        m_ahead.pop_front();
    }
    const auto passed = packet ? m_passedTracks.find(packet->stream_index) : m_passedTracks.end();
    if (passed != m_passedTracks.end())
        passed->second.fillIn(*packet);
    return packet;
}

PacketHandle Source::readNext() {
    PacketHandle packet = makePacket();
    for (int errors = 0; errors < maximumReadErrors; ++errors) {
        const int result = av_read_frame(m_context, packet.get());
        if (result >= 0) {
            if (m_tellsPositionsOnly && packet->duration == 0)
                packet->duration = durationOf(*packet, track(packet->stream_index));
            return packet;
        }
        if (result == AVERROR_EOF || avio_feof(m_context->pb))
            break;
    }
    return nullptr;
}

double Source::fractionRead() const {
    return std::clamp(static_cast<double>(m_io.position()) / static_cast<double>(m_sizeBytes), 0.0, 1.0);
}

} // namespace reelsmith::media
