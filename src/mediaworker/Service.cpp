// SPDX-License-Identifier: GPL-3.0-or-later
#include "mediaworker/Service.h"

#include "media/ExportPlan.h"
#include "media/Exporter.h"
#include "media/FrameGrabber.h"
#include "media/Probe.h"
#include "media/Source.h"
#include "media/TrackChoice.h"
#include "mediaworker/Lockdown.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <unistd.h>

namespace reelsmith::mediaworker {

namespace {

/// Writes all rows without padding. False where the output takes no more.
bool writeRows(const AVFrame& picture, int output) {
    const auto rowBytes = static_cast<std::size_t>(picture.width) * 4;
    off_t position = 0;
    for (int y = 0; y < picture.height; ++y) {
        const auto* row = picture.data[0] + std::ptrdiff_t{y} * picture.linesize[0];
        if (::pwrite(output, row, rowBytes, position) != static_cast<ssize_t>(rowBytes))
            return false;
        position += static_cast<off_t>(rowBytes);
    }
    return true;
}

VideoTrackProperties describe(const media::Track& track) {
    VideoTrackProperties properties;
    properties.naturalWidth = std::round(track.width * av_q2d(track.pixelAspect));
    properties.naturalHeight = track.height;
    properties.transform =
        media::transformOf(media::orientationFromDisplayMatrix(track.displayMatrix.data()));
    return properties;
}

} // namespace

void Service::run() {
    for (;;) {
        Letter letter;
        if (m_channel.receive(letter) != Channel::Status::Received)
            return;
        answer(letter);
    }
}

void Service::answer(const Letter& letter) {
    const auto descriptor = [&letter](std::size_t index) {
        return index < letter.descriptors.size() ? letter.descriptors[index].number() : -1;
    };
    if (std::holds_alternative<ProbeRequest>(letter.message))
        m_channel.send(inspect(descriptor(0)));
    else if (const auto* thumbnail = std::get_if<ThumbnailRequest>(&letter.message))
        m_channel.send(makeThumbnail(*thumbnail, descriptor(0), descriptor(1)));
    else if (const auto* request = std::get_if<ExportRequest>(&letter.message))
        m_channel.send(exportFile(*request, descriptor(0), descriptor(1)));
}

AssetProperties Service::inspect(int source) const {
    AssetProperties properties;
    const auto opened = media::Source::open(source, media::Source::Detail::Headers);
    if (!opened) {
        properties.problem = opened.error().text;
        return properties;
    }
    const media::MediaInfo info = media::probe(**opened);
    properties.duration = {info.durationUnits, info.durationTimescale};
    if (const media::Track* track = media::shownVideoTrack(info))
        properties.videoTrack = describe(*track);
    for (int i = 0; i < media::presetCount; ++i) {
        const auto plan = media::planExport(info, static_cast<Preset>(i), {});
        properties.isPlayable = properties.isExportable = plan.has_value();
        if (plan)
            properties.estimatedBytes[static_cast<std::size_t>(i)] = media::estimateBytes(info, *plan);
        else
            properties.problem = plan.error().text;
    }
    return properties;
}

ThumbnailReply Service::makeThumbnail(const ThumbnailRequest& request, int source, int output) const {
    const double seconds =
        request.time.timescale > 0 ? static_cast<double>(request.time.value) / request.time.timescale : 0;
    const auto picture = media::grabFrame(source, seconds, {request.maximumWidth, request.maximumHeight});
    if (!picture)
        return {0, 0, picture.error().text};
    if (!writeRows(**picture, output))
        return {0, 0, std::string("The picture cannot be handed over: ") + std::strerror(errno)};
    return {(*picture)->width, (*picture)->height, {}};
}

ExportFinished Service::exportFile(const ExportRequest& request, int source, int output) {
    leaveSpaceBeside(output);
    const media::ExportJob job{source, output, request.preset, request.languages};
    const auto done =
        media::exportVideo(job, [this](double fraction) { m_channel.send(ExportProgress{fraction}); });
    if (done)
        return {{}, *done};
    return {done.error().text.empty() ? "The export failed" : done.error().text, {}};
}

} // namespace reelsmith::mediaworker
