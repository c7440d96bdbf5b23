// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ExportInput.h"

#include "media/Exporter.h"
#include "media/Probe.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace reelsmith::media {

namespace {

/// Takes from a track's first packet what the headers leave open.
void readStart(Source& source, Track& track) {
    const AVPacket* first = source.firstPacket(track.index);
    track.startsOnKeyFrame = first && (first->flags & AV_PKT_FLAG_KEY);
    const bool isOpen = source.track(track.index)->start_time == AV_NOPTS_VALUE;
    if (isOpen && first && first->pts != AV_NOPTS_VALUE)
        track.startSeconds = static_cast<double>(first->pts) * av_q2d(track.timeBase);
}

Result<ExportInput> open(const ExportJob& job, Source::Detail detail) {
    auto source = Source::open(job.source, detail);
    if (!source)
        return tl::unexpected(source.error());
    MediaInfo info = probe(**source);
    auto plan = planExport(info, job.preset, job.languages);
    if (plan && plan->video.treatment == Treatment::Copy) {
        readStart(**source, info.tracks[static_cast<std::size_t>(plan->video.track)]);
        if (detail == Source::Detail::Passed) {
            for (const AudioPlan& sound : plan->sounds)
                readStart(**source, info.tracks[static_cast<std::size_t>(sound.track)]);
        }
        plan = planExport(info, job.preset, job.languages);
    }
    if (!plan)
        return tl::unexpected(plan.error());
    return ExportInput{std::move(*source), std::move(info), std::move(*plan)};
}

/// Whether pictures and sound can be brought over without a closer look, as far as the headers tell what they
/// are; texts, which are turned into others, then have to be there.
bool isPlainCopy(const ExportInput& input) {
    const auto isCopied = [&source = *input.source](const auto& plan) {
        return plan.treatment == Treatment::Copy && source.canPassOn(plan.track);
    };
    const auto isSound = [](const Track& track) {
        return track.kind == TrackKind::Audio && track.hasSamples;
    };
    const auto& tracks = input.info.tracks;
    const auto& sounds = input.plan.sounds;
    return isCopied(input.plan.video) && std::all_of(sounds.begin(), sounds.end(), isCopied) &&
           std::count_if(tracks.begin(), tracks.end(), isSound) == std::ssize(sounds) &&
           (input.plan.texts.empty() || !input.source->tellsPositionsOnly());
}

} // namespace

Result<ExportInput> openInput(const ExportJob& job) {
    if (job.preset == Preset::Passthrough) {
        auto input = open(job, Source::Detail::Passed);
        if (input && isPlainCopy(*input))
            return input;
    }
    return open(job, Source::Detail::Decoded);
}

} // namespace reelsmith::media
