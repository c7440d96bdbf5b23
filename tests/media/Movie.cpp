// SPDX-License-Identifier: GPL-3.0-or-later
#include "Movie.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>

namespace reelsmith::media {

namespace {

using Reader = std::unique_ptr<AVFormatContext,
                               decltype([](AVFormatContext* context) { avformat_close_input(&context); })>;

Reader open(const std::string& path) {
    AVFormatContext* context = nullptr;
    if (avformat_open_input(&context, path.c_str(), nullptr, nullptr) < 0 ||
        avformat_find_stream_info(context, nullptr) < 0)
        throw std::runtime_error("cannot read " + path);
    return Reader(context);
}

PacketHandle packetOf(const Reader& reader) {
    PacketHandle packet = makePacket();
    return av_read_frame(reader.get(), packet.get()) < 0 ? nullptr : std::move(packet);
}

/// Decodes the first track of a kind that is no cover art.
void decode(const std::string& path, AVMediaType kind,
            const std::function<void(const AVStream&, FrameHandle)>& take) {
    const Reader reader = open(path);
    const AVCodec* codec = nullptr;
    const int index = av_find_best_stream(reader.get(), kind, -1, -1, &codec, 0);
    ASSERT_GE(index, 0) << path;
    const AVStream& stream = *reader->streams[index];
    const CodecHandle decoder(avcodec_alloc_context3(codec));
    ASSERT_GE(avcodec_parameters_to_context(decoder.get(), stream.codecpar), 0);
    decoder->pkt_timebase = stream.time_base;
    ASSERT_EQ(avcodec_open2(decoder.get(), codec, nullptr), 0);
    for (bool isLast = false; !isLast;) {
        const PacketHandle read = packetOf(reader);
        isLast = !read;
        if (read && read->stream_index != index)
            continue;
        ASSERT_EQ(avcodec_send_packet(decoder.get(), read.get()), 0) << path;
        for (FrameHandle frame = makeFrame(); avcodec_receive_frame(decoder.get(), frame.get()) == 0;
             frame = makeFrame())
            take(stream, std::move(frame));
    }
}

std::map<std::string, std::string> entriesOf(const AVDictionary* dictionary) {
    std::map<std::string, std::string> entries;
    const AVDictionaryEntry* entry = nullptr;
    while ((entry = av_dict_get(dictionary, "", entry, AV_DICT_IGNORE_SUFFIX)))
        entries[entry->key] = entry->value;
    return entries;
}

Movie::Track describe(const AVStream& stream) {
    Movie::Track track;
    track.kind = stream.codecpar->codec_type;
    track.codec.reset(avcodec_parameters_alloc());
    EXPECT_GE(avcodec_parameters_copy(track.codec.get(), stream.codecpar), 0);
    track.language = entriesOf(stream.metadata)["language"];
    track.end = static_cast<double>(std::max<std::int64_t>(0, stream.start_time) + stream.duration) *
                av_q2d(stream.time_base);
    track.isDefault = stream.disposition & AV_DISPOSITION_DEFAULT;
    return track;
}

} // namespace

std::vector<double> Movie::Track::starts() const {
    std::vector<double> starts;
    for (const Sample& sample : samples)
        starts.push_back(sample.start);
    std::sort(starts.begin(), starts.end());
    return starts;
}

std::vector<std::string> Movie::Track::data() const {
    std::vector<std::string> all;
    for (const Sample& sample : samples)
        all.push_back(sample.data);
    return all;
}

Movie Movie::read(const std::string& path) {
    Movie movie;
    movie.path = path;
    const Reader reader = open(path);
    for (unsigned i = 0; i < reader->nb_streams; ++i)
        movie.tracks.push_back(describe(*reader->streams[i]));
    while (const PacketHandle packet = packetOf(reader)) {
        const double unit = av_q2d(reader->streams[packet->stream_index]->time_base);
        if (packet->flags & AV_PKT_FLAG_DISCARD)
            continue;
        movie.tracks[static_cast<std::size_t>(packet->stream_index)].samples.push_back(
            {static_cast<double>(packet->pts) * unit,
             std::string(reinterpret_cast<char*>(packet->data), static_cast<std::size_t>(packet->size))});
    }
    movie.duration = static_cast<double>(reader->duration) / AV_TIME_BASE;
    movie.metadata = entriesOf(reader->metadata);
    for (unsigned i = 0; i < reader->nb_chapters; ++i) {
        const AVChapter& chapter = *reader->chapters[i];
        const double unit = av_q2d(chapter.time_base);
        movie.chapters.push_back({static_cast<double>(chapter.start) * unit,
                                  static_cast<double>(chapter.end) * unit,
                                  entriesOf(chapter.metadata)["title"]});
    }
    return movie;
}

const Movie::Track& Movie::track(AVMediaType kind) const {
    for (const Track& each : tracks) {
        if (each.kind == kind)
            return each;
    }
    throw std::runtime_error(path + " has no " + av_get_media_type_string(kind));
}

int Movie::count(AVMediaType kind) const {
    return static_cast<int>(
        std::count_if(tracks.begin(), tracks.end(), [kind](const Track& each) { return each.kind == kind; }));
}

double Picture::mean(int plane, double left, double top, double right, double bottom) const {
    const int shift = plane > 0 ? 1 : 0;
    const int width = AV_CEIL_RSHIFT(frame->width, shift);
    const int height = AV_CEIL_RSHIFT(frame->height, shift);
    double sum = 0;
    int count = 0;
    for (int y = static_cast<int>(top * height); y < static_cast<int>(bottom * height); ++y) {
        for (int x = static_cast<int>(left * width); x < static_cast<int>(right * width); ++x, ++count)
            sum += frame->data[plane][y * frame->linesize[plane] + x];
    }
    return sum / count;
}

std::vector<Picture> picturesOf(const std::string& path) {
    std::vector<Picture> pictures;
    decode(path, AVMEDIA_TYPE_VIDEO, [&](const AVStream& stream, FrameHandle frame) {
        EXPECT_EQ(frame->format, AV_PIX_FMT_YUV420P);
        const double start = static_cast<double>(frame->pts) * av_q2d(stream.time_base);
        pictures.push_back({start, std::move(frame)});
    });
    return pictures;
}

Sound soundOf(const std::string& path) {
    Sound sound;
    decode(path, AVMEDIA_TYPE_AUDIO, [&](const AVStream& stream, const FrameHandle& frame) {
        ASSERT_EQ(frame->format, AV_SAMPLE_FMT_FLTP);
        sound.sampleRate = frame->sample_rate;
        sound.channels.resize(static_cast<std::size_t>(frame->ch_layout.nb_channels));
        const auto start = av_rescale_q(frame->pts, stream.time_base, AVRational{1, frame->sample_rate});
        for (std::size_t channel = 0; channel < sound.channels.size(); ++channel) {
            auto& samples = sound.channels[channel];
            samples.resize(std::max(samples.size(), static_cast<std::size_t>(std::max<std::int64_t>(
                                                        0, start + frame->nb_samples))));
            const auto* source = reinterpret_cast<const float*>(frame->extended_data[channel]);
            for (int i = 0; i < frame->nb_samples; ++i) {
                if (start + i >= 0)
                    samples[static_cast<std::size_t>(start + i)] = source[i];
            }
        }
    });
    return sound;
}

double Sound::level(std::size_t channel, double from, double to) const {
    if (channel >= channels.size())
        return -1;
    const auto& samples = channels[channel];
    const auto first = static_cast<std::size_t>(from * sampleRate);
    const auto last = std::min(samples.size(), static_cast<std::size_t>(to * sampleRate));
    double sum = 0;
    for (std::size_t i = first; i < last; ++i)
        sum += double{samples[i]} * double{samples[i]};
    return last > first ? std::sqrt(sum / static_cast<double>(last - first)) : 0;
}

} // namespace reelsmith::media
