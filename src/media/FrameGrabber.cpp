// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/FrameGrabber.h"

#include "media/Decoder.h"
#include "media/PictureConverter.h"
#include "media/Probe.h"
#include "media/Source.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace reelsmith::media {

namespace {

/// A file whose first thousands of packets yield no picture at the time wanted yields what was seen.
constexpr int mostPackets = 20'000;

Size fit(const Track& track, Size bounds) {
    const double width = track.width * av_q2d(track.pixelAspect);
    const double height = track.height;
    const double factor = std::min({1.0, bounds.width / width, bounds.height / height});
    const auto even = [](double length) {
        return std::max(2, 2 * static_cast<int>(std::floor(length / 2 + 0.01)));
    };
    return {even(width * factor), even(height * factor)};
}

int halvingsFor(const Track& track, Size scaled) {
    int halvings = 0;
    while (halvings < 3 && (track.width >> (halvings + 1)) >= scaled.width &&
           (track.height >> (halvings + 1)) >= scaled.height)
        ++halvings;
    return halvings;
}

/// The first frame at or after the time, or the last before it; null where nothing decodes.
Result<FrameHandle> decodeFrame(Source& source, const Track& track, Decoder& decoder, double seconds) {
    const double unit = av_q2d(track.timeBase);
    FrameHandle found;
    bool isReached = false;
    const auto look = [&](FrameHandle frame) {
        const bool isShown =
            frame->best_effort_timestamp == AV_NOPTS_VALUE || frame->best_effort_timestamp >= 0;
        if (frame->width <= 0 || !isShown)
            return true;
        isReached = frame->best_effort_timestamp == AV_NOPTS_VALUE ||
                    static_cast<double>(frame->best_effort_timestamp) * unit >= seconds - unit / 2;
        found = std::move(frame);
        return !isReached;
    };
    for (int packets = 0; packets < mostPackets && !isReached; ++packets) {
        const PacketHandle packet = source.readPacket();
        if (packet && packet->stream_index != track.index)
            continue;
        if (packet && av_packet_get_side_data(packet.get(), AV_PKT_DATA_ENCRYPTION_INFO, nullptr))
            return failure(ErrorCode::Encrypted, "The video is encrypted");
        if (auto decoded = decoder.decode(packet.get(), look); !decoded)
            return tl::unexpected(decoded.error());
        if (!packet)
            break;
    }
    return found;
}

/// The same, without decoding all that comes long before.
Result<FrameHandle> findFrame(Source& source, const Track& track, Decoder& decoder, double seconds) {
    constexpr double nearTheStart = 1;
    const auto seek = [&](double time) {
        return av_seek_frame(source.context(), track.index, std::llround(time / av_q2d(track.timeBase)),
                             AVSEEK_FLAG_BACKWARD) >= 0;
    };
    const bool hasLeapt = seconds > track.startSeconds + nearTheStart && seek(seconds);
    auto frame = decodeFrame(source, track, decoder, seconds);
    // Without an index a leap may go beyond the last picture.
    if (frame && !*frame && hasLeapt && seek(track.startSeconds)) {
        decoder.reset();
        return decodeFrame(source, track, decoder, seconds);
    }
    return frame;
}

Result<FrameHandle> toRgba(const AVFrame& frame) {
    FrameHandle rgba = makeFrame();
    rgba->format = AV_PIX_FMT_RGBA;
    rgba->width = frame.width;
    rgba->height = frame.height;
    const ScalerHandle scaler(
        sws_getContext(frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), frame.width,
                       frame.height, AV_PIX_FMT_RGBA, SWS_POINT, nullptr, nullptr, nullptr));
    if (!scaler || av_frame_get_buffer(rgba.get(), 64) < 0)
        return failure(ErrorCode::OutOfMemory, "Out of memory");
    const int* coefficients = sws_getCoefficients(frame.colorspace);
    constexpr int unity = 1 << 16;
    sws_setColorspaceDetails(scaler.get(), coefficients, 0, coefficients, 1, 0, unity, unity);
    sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, rgba->data, rgba->linesize);
    return rgba;
}

} // namespace

Result<FrameHandle> grabFrame(int descriptor, double seconds, Size bounds) {
    auto source = Source::open(descriptor, Source::Detail::Headers);
    if (!source)
        return tl::unexpected(source.error());
    const MediaInfo info = probe(**source);
    const auto plan = planExport(info, Preset::Medium, {});
    if (!plan)
        return tl::unexpected(plan.error());
    const Track& track = info.tracks[static_cast<std::size_t>(plan->video.track)];
    const bool isSideways = swapsSides(plan->video.orientation);
    const Size scaled = fit(track, isSideways ? bounds.turned() : bounds);
    auto decoder = Decoder::open((*source)->track(track.index),
                                 {1, Decoder::LoopFilter::None, halvingsFor(track, scaled)});
    if (!decoder)
        return tl::unexpected(decoder.error());
    for (unsigned i = 0; i < (*source)->context()->nb_streams; ++i) {
        if (static_cast<int>(i) != track.index)
            (*source)->track(static_cast<int>(i))->discard = AVDISCARD_ALL;
    }
    auto frame = findFrame(**source, track, **decoder, seconds + plan->zeroSeconds);
    if (!frame)
        return frame;
    if (!*frame)
        return failure(ErrorCode::InvalidSource, "No picture could be decoded");
    auto picture =
        PictureConverter(scaled.width, scaled.height, plan->video.orientation).convert(std::move(*frame));
    if (!picture)
        return picture;
    return toRgba(**picture);
}

} // namespace reelsmith::media
