// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Mp4Writer.h"

#include "media/IndexShift.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

extern "C" {
#include <libavutil/mem.h>
}

namespace reelsmith::media {

namespace {

constexpr const char* outOfMemory = "Out of memory";

/// Hours of sound before the first picture.
constexpr std::int64_t mostWaitingBytes = 256 << 20;

AVChapter* makeChapter(const Mp4Writer::Chapter& chapter, int id) {
    auto* made = static_cast<AVChapter*>(av_mallocz(sizeof(AVChapter)));
    if (!made)
        throw std::bad_alloc();
    constexpr int timescale = 1000;
    made->id = id;
    made->time_base = {1, timescale};
    made->start = std::llround(chapter.startSeconds * timescale);
    made->end = std::llround(chapter.endSeconds * timescale);
    av_dict_set(&made->metadata, "title", chapter.title.c_str(), 0);
    return made;
}

} // namespace

Mp4Writer::Mp4Writer(int descriptor)
    : m_io(descriptor, DescriptorIo::Access::ReadWrite), m_rereading(descriptor, DescriptorIo::Access::Read) {
    if (avformat_alloc_output_context2(&m_context, nullptr, "mp4", nullptr) < 0)
        throw std::bad_alloc();
    m_context->pb = m_io.context();
    m_context->flags |= AVFMT_FLAG_CUSTOM_IO;
    // FLAC has long had its place in MP4, but FFmpeg 5.1 still calls it an experiment.
    m_context->strict_std_compliance = FF_COMPLIANCE_EXPERIMENTAL;
    m_context->opaque = this;
    m_context->io_open = openAgain;
    m_context->io_close2 = closeAgain;
}

Mp4Writer::~Mp4Writer() {
    avformat_free_context(m_context);
}

int Mp4Writer::openAgain(AVFormatContext* context, AVIOContext** made, const char*, int flags,
                         AVDictionary**) {
    if (flags & AVIO_FLAG_WRITE)
        return AVERROR(EACCES);
    *made = static_cast<Mp4Writer*>(context->opaque)->m_rereading.context();
    return 0;
}

int Mp4Writer::closeAgain(AVFormatContext*, AVIOContext*) {
    return 0;
}

void Mp4Writer::annotate(const Annotations& annotations) {
    if (!annotations.creationTime.empty())
        av_dict_set(&m_context->metadata, "creation_time", annotations.creationTime.c_str(), 0);
    if (annotations.chapters.empty())
        return;
    const auto count = annotations.chapters.size();
    m_context->chapters = static_cast<AVChapter**>(av_calloc(count, sizeof(AVChapter*)));
    if (!m_context->chapters)
        throw std::bad_alloc();
    for (std::size_t i = 0; i < count; ++i) {
        m_context->chapters[i] = makeChapter(annotations.chapters[i], static_cast<int>(i));
        ++m_context->nb_chapters;
    }
}

void Mp4Writer::takePacketsFrom(int source) {
    m_mover.emplace(source, m_io.descriptor());
    // None that might look into packets or change them.
    m_context->flags &= ~AVFMT_FLAG_AUTO_BSF;
}

void Mp4Writer::leaveRoomFor(std::int64_t packetCount) {
    m_indexRoom.emplace(packetCount);
    // Large packets go to the file straight away.
    m_context->pb->direct = 1;
}

int Mp4Writer::reserveTrack() {
    m_tracks.emplace_back();
    return static_cast<int>(m_tracks.size()) - 1;
}

Result<void> Mp4Writer::sealTracks() {
    const std::lock_guard lock(m_mutex);
    m_isSealed = true;
    return beginOnceDescribed();
}

Result<void> Mp4Writer::describeTrack(int track, TrackDescription description) {
    const std::lock_guard lock(m_mutex);
    Track& described = m_tracks[static_cast<std::size_t>(track)];
    described.description = std::move(description);
    described.isDescribed = true;
    return beginOnceDescribed();
}

Result<void> Mp4Writer::beginOnceDescribed() {
    const bool isDescribed =
        std::all_of(m_tracks.begin(), m_tracks.end(), [](const Track& each) { return each.isDescribed; });
    return m_isSealed && isDescribed ? begin() : Result<void>();
}

Result<void> Mp4Writer::addStreams() {
    for (const Track& track : m_tracks) {
        const TrackDescription& description = track.description;
        AVStream* stream = avformat_new_stream(m_context, nullptr);
        if (!stream || avcodec_parameters_copy(stream->codecpar, description.codec.get()) < 0)
            return failure(ErrorCode::OutOfMemory, outOfMemory);
        stream->time_base = description.timeBase;
        stream->disposition = description.disposition;
        if (stream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO)
            stream->sample_aspect_ratio = stream->codecpar->sample_aspect_ratio;
        if (!description.language.empty())
            av_dict_set(&stream->metadata, "language", description.language.c_str(), 0);
        if (description.isTurned) {
            constexpr std::size_t size = sizeof description.displayMatrix;
            auto* matrix = av_stream_new_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, size);
            if (!matrix)
                return failure(ErrorCode::OutOfMemory, outOfMemory);
            std::memcpy(matrix, description.displayMatrix.data(), size);
        }
    }
    return {};
}

Result<void> Mp4Writer::begin() {
    if (auto added = addStreams(); !added)
        return added;
    AVDictionary* options = nullptr;
    if (m_indexRoom)
        m_indexRoom->open(*m_context, &options);
    else
        av_dict_set(&options, "movflags", "+faststart", 0);
    const int result = avformat_write_header(m_context, &options);
    av_dict_free(&options);
    if (result < 0)
        return ffmpegFailure(ErrorCode::WriteFailed, "The result cannot be begun", result);
    m_hasBegun = true;
    while (!m_waiting.empty()) {
        auto [track, packet] = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (auto written = writeNow(track, std::move(packet)); !written)
            return written;
    }
    return {};
}

Result<void> Mp4Writer::write(int track, PacketHandle packet) {
    const std::lock_guard lock(m_mutex);
    if (m_hasBegun)
        return writeNow(track, std::move(packet));
    m_waitingBytes += packet->size;
    if (m_waitingBytes > mostWaitingBytes)
        return failure(ErrorCode::InvalidSource, "The tracks begin too far apart");
    m_waiting.emplace_back(track, std::move(packet));
    return {};
}

Result<void> Mp4Writer::writeNow(int number, PacketHandle packet) {
    Track& track = m_tracks[static_cast<std::size_t>(number)];
    const AVStream* stream = m_context->streams[number];
    packet->stream_index = number;
    av_packet_rescale_ts(packet.get(), track.description.timeBase, stream->time_base);
    // Where a source joins pieces, times may repeat; MP4 counts in steps of at least one.
    if (packet->dts != AV_NOPTS_VALUE) {
        if (packet->dts <= track.lastDts)
            packet->dts = track.lastDts + 1;
        if (packet->pts != AV_NOPTS_VALUE && packet->pts < packet->dts)
            packet->pts = packet->dts;
        track.lastDts = packet->dts;
    }
    ++track.packetCount;
    int result = m_mover ? writeWithGap(packet.get()) : av_interleaved_write_frame(m_context, packet.get());
    if (result >= 0)
        result = m_context->pb->error;
    if (result < 0)
        return ffmpegFailure(ErrorCode::WriteFailed, "The result cannot be written", result);
    return {};
}

int Mp4Writer::writeWithGap(AVPacket* packet) {
    m_io.leaveGapFor(packet->data, packet->size);
    const int result = av_write_frame(m_context, packet);
    if (result < 0 || packet->size == 0)
        return result;
    const auto gap = m_io.gap();
    if (!gap)
        return AVERROR_BUG;
    m_mover->add({packet->pos, *gap, packet->size});
    return result;
}

Result<void> Mp4Writer::finish(const std::function<void(double)>& progress) {
    if (!m_hasBegun)
        return failure(ErrorCode::InvalidSource, "Nothing in the file could be decoded");
    if (!m_mover)
        return writeIndex();
    // Where only gaps are there is nothing to move when the index goes in front, but that they lie further
    // on.
    avio_flush(m_context->pb);
    const std::int64_t start = box("mdat").contentStart;
    if (auto written = writeIndex(); !written)
        return written;
    const auto shift = [&] { return box("mdat").contentStart - start; };
    if (auto pushed = pushMediaData(m_io.descriptor(), m_mover->bytesToAlignment(shift())); !pushed)
        return pushed;
    return m_mover->move(shift(), progress);
}

Result<void> Mp4Writer::writeIndex() {
    if (m_indexRoom) {
        avio_flush(m_context->pb);
        m_indexRoom->settle(*m_context, box("ftyp").end, indexedCount());
    }
    int result = av_write_trailer(m_context);
    avio_flush(m_context->pb);
    if (result >= 0)
        result = m_context->pb->error;
    if (result < 0)
        return ffmpegFailure(ErrorCode::WriteFailed, "The result cannot be finished", result);
    return {};
}

std::int64_t Mp4Writer::indexedCount() const {
    // Before, between and after texts there may be empty ones.
    constexpr int entriesOfText = 2;
    std::int64_t count = entriesOfText * std::int64_t{m_context->nb_chapters};
    for (const Track& track : m_tracks) {
        const bool isText = track.description.codec->codec_type == AVMEDIA_TYPE_SUBTITLE;
        count += isText ? entriesOfText * track.packetCount + 1 : track.packetCount;
    }
    return count;
}

Box Mp4Writer::box(const char* type) const {
    return findBox(m_io.descriptor(), 0, m_io.sizeBytes(), type).value_or(Box());
}

} // namespace reelsmith::media
