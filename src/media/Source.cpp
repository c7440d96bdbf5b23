// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Source.h"

#include "media/Limits.h"

#include <algorithm>
#include <cstring>

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

int refuseNestedOpen(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
    return AVERROR(EACCES);
}

bool isDescribedByHeaders(const AVFormatContext* context) {
    const bool isIndexed =
        std::strstr(context->iformat->name, "mp4") || std::strstr(context->iformat->name, "matroska");
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

} // namespace

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
    std::unique_ptr<Source> source(new Source(descriptor));
    if (source->m_sizeBytes == 0)
        return failure(ErrorCode::InvalidSource, "The file is empty");
    if (auto opened = source->openContainer(); !opened)
        return tl::unexpected(opened.error());
    if (auto found = source->findTracks(detail); !found)
        return tl::unexpected(found.error());
    return source;
}

Result<void> Source::openContainer() {
    AVDictionary* options = nullptr;
    av_dict_set(&options, "format_whitelist", containers, 0);
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
    const int result = avformat_find_stream_info(m_context, options.data());
    for (unsigned i = 0; i < given; ++i)
        av_dict_free(&options[i]);
    if (result < 0)
        return ffmpegFailure(ErrorCode::InvalidSource, "The file's tracks cannot be read", result);
    return {};
}

bool Source::startsOnKeyFrame(int track) {
    constexpr std::size_t mostAhead = 2000;
    while (m_ahead.size() < mostAhead) {
        PacketHandle packet = readNext();
        if (!packet)
            break;
        const bool isFirst = packet->stream_index == track;
        const bool isKeyFrame = (packet->flags & AV_PKT_FLAG_KEY) != 0;
        m_ahead.push_back(std::move(packet));
        if (isFirst)
            return isKeyFrame;
    }
    return false;
}

PacketHandle Source::readPacket() {
    if (m_ahead.empty())
        return readNext();
    PacketHandle packet = std::move(m_ahead.front());
    m_ahead.pop_front();
    return packet;
}

PacketHandle Source::readNext() {
    PacketHandle packet = makePacket();
    for (int errors = 0; errors < maximumReadErrors; ++errors) {
        const int result = av_read_frame(m_context, packet.get());
        if (result >= 0)
            return packet;
        if (result == AVERROR_EOF || avio_feof(m_context->pb))
            break;
    }
    return nullptr;
}

double Source::fractionRead() const {
    return std::clamp(static_cast<double>(m_io.position()) / static_cast<double>(m_sizeBytes), 0.0, 1.0);
}

} // namespace reelsmith::media
