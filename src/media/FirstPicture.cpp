// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/FirstPicture.h"

#include "media/Limits.h"

#include <algorithm>
#include <cstdint>

namespace reelsmith::media {

namespace {

/// How many bytes stand before each NAL unit to give its length (ISO/IEC 14496-15); 0 where none do.
int lengthBytes(const AVCodecParameters& codec) {
    const int position = codec.codec_id == AV_CODEC_ID_HEVC ? 21 : 4;
    const bool isListed = codec.extradata_size > position && codec.extradata[0] == 1;
    return isListed ? (codec.extradata[position] & 3) + 1 : 0;
}

bool isPicture(AVCodecID codec, std::uint8_t header) {
    if (codec == AV_CODEC_ID_HEVC)
        return (header >> 1 & 0x3f) < 32;
    return (header & 0x1f) == 1 || (header & 0x1f) == 5;
}

/// What stands before the first piece of a picture, and that piece's beginning. Null where there is none.
PacketHandle beginningOf(const AVPacket& packet, const AVCodecParameters& codec) {
    constexpr std::int64_t longestSliceHeader = 1024;
    const int prefix = lengthBytes(codec);
    for (int position = 0; prefix > 0 && position + prefix < packet.size;) {
        std::int64_t length = 0;
        for (int i = 0; i < prefix; ++i)
            length = length << 8 | packet.data[position + i];
        const int start = position + prefix;
        if (length == 0 || length > packet.size - start)
            return nullptr;
        if (!isPicture(codec.codec_id, packet.data[start])) {
            position = start + static_cast<int>(length);
            continue;
        }
        length = std::min(length, longestSliceHeader);
        PacketHandle beginning = makePacket();
        if (av_new_packet(beginning.get(), start + static_cast<int>(length)) < 0)
            return nullptr;
        std::copy_n(packet.data, beginning->size, beginning->data);
        for (int i = 0; i < prefix; ++i)
            beginning->data[position + i] = static_cast<std::uint8_t>(length >> 8 * (prefix - 1 - i));
        return beginning;
    }
    return nullptr;
}

/// Whether the decoder's delay is what the headers say. H.264's need not say it; then it is 0 to begin with.
bool isDelayTold(const AVCodecContext& decoder) {
    return decoder.codec_id == AV_CODEC_ID_HEVC || decoder.has_b_frames > 0 ||
           (decoder.profile & ~FF_PROFILE_H264_CONSTRAINED) == FF_PROFILE_H264_BASELINE;
}

} // namespace

bool describeByFirstPicture(AVCodecParameters& codec, const AVPacket& first) {
    const PacketHandle beginning = beginningOf(first, codec);
    const AVCodec* decoder = avcodec_find_decoder(codec.codec_id);
    const CodecHandle context(decoder && beginning ? avcodec_alloc_context3(decoder) : nullptr);
    if (!context || avcodec_parameters_to_context(context.get(), &codec) < 0)
        return false;
    context->thread_count = 1;
    context->max_pixels = maximumPixels;
    // There is no picture to mend.
    context->error_concealment = 0;
    if (avcodec_open2(context.get(), decoder, nullptr) < 0)
        return false;
    avcodec_send_packet(context.get(), beginning.get());
    if (context->pix_fmt == AV_PIX_FMT_NONE || !isDelayTold(*context))
        return false;
    codec.format = context->pix_fmt;
    codec.profile = context->profile;
    codec.level = context->level;
    codec.color_range = context->color_range;
    codec.color_primaries = context->color_primaries;
    codec.color_trc = context->color_trc;
    codec.color_space = context->colorspace;
    codec.chroma_location = context->chroma_sample_location;
    codec.video_delay = context->has_b_frames;
    return true;
}

} // namespace reelsmith::media
