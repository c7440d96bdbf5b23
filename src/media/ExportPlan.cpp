// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/ExportPlan.h"

#include "media/Limits.h"
#include "media/TrackChoice.h"

#include <algorithm>
#include <cmath>

namespace reelsmith::media {

namespace {

/// Pixels of the largest picture of H.264's level 5.1: what players of large pictures can be relied on to
/// take.
constexpr double largestPicture = 36'864 * 256.0;

/// The longest side that the same level allows is a little more; the encoder's own limit is twice that.
constexpr double longestSide = 8'192;

int evenAtLeastTwo(double length) {
    return std::max(2, 2 * static_cast<int>(std::lround(length / 2)));
}

/// The size with square pixels, within the preset's bounds, still unturned.
Size scaledSize(const Track& track, const PresetRules& rules) {
    const double width = track.width * av_q2d(track.pixelAspect);
    const double height = track.height;
    double factor = std::min(1.0, rules.shortSide / std::min(width, height));
    factor = std::min(factor, std::sqrt(largestPicture / (width * height)));
    factor = std::min(factor, longestSide / std::max(width, height));
    return {evenAtLeastTwo(width * factor), evenAtLeastTwo(height * factor)};
}

Result<const Track*> chooseVideo(const MediaInfo& info) {
    const Track* track = shownVideoTrack(info);
    if (!track) {
        const bool hasUndecodable =
            std::any_of(info.tracks.begin(), info.tracks.end(), [](const Track& each) {
                return each.kind == TrackKind::Video && !each.isCoverArt && !each.hasDecoder;
            });
        return hasUndecodable ? failure(ErrorCode::Unsupported, "There is no decoder for the file's video")
                              : failure(ErrorCode::InvalidSource, "The file holds no video");
    }
    if (track->isEncrypted)
        return failure(ErrorCode::Encrypted, "The video is encrypted");
    if (track->hasForeignBaseLayer)
        return failure(ErrorCode::Unsupported,
                       "The video is Dolby Vision without a picture for other players");
    if (std::int64_t{track->width} * track->height > maximumPixels)
        return failure(ErrorCode::Unsupported, "The picture is too large: " + std::to_string(track->width) +
                                                   "x" + std::to_string(track->height));
    return track;
}

/// Whether a copy keeps all there is to a track.
bool keepsWhole(const Track& track) {
    return track.hasSimpleEdits && track.hasOneDescription;
}

VideoPlan planVideo(const Track& track, const MediaInfo& info, Preset preset) {
    const PresetRules rules = rulesOf(preset);
    VideoPlan plan;
    plan.track = track.index;
    if (preset == Preset::Passthrough && isCopyable(track, info.container) && keepsWhole(track) &&
        track.startsOnKeyFrame)
        plan.treatment = Treatment::Copy;
    plan.orientation = orientationFromDisplayMatrix(track.displayMatrix.data());
    plan.scaled = scaledSize(track, rules);
    plan.reduction = std::min(static_cast<double>(track.width) / plan.scaled.width,
                              static_cast<double>(track.height) / plan.scaled.height);
    plan.peakRate = rules.peakRate;
    return plan;
}

/// AAC has these rates; sound of another is resampled to the nearest above, at most 48 kHz.
int aacSampleRate(int sampleRate) {
    for (const int rate : {8'000, 11'025, 12'000, 16'000, 22'050, 24'000, 32'000, 44'100, 48'000}) {
        if (sampleRate <= rate)
            return rate;
    }
    return sampleRate % 44'100 == 0 ? 44'100 : 48'000;
}

/// Whether a player that knows AAC-LC stereo takes the sound as it is, at a rate that suits the preset.
bool isCopiedByAnyPreset(const Track& track, int bitRate) {
    constexpr double slack = 1.25;
    constexpr int profileLowComplexity = 1;
    return track.codec == AV_CODEC_ID_AAC && track.profile == profileLowComplexity && track.channels <= 2 &&
           track.sampleRate <= 48'000 && keepsWhole(track) && track.bitRate > 0 &&
           static_cast<double>(track.bitRate) <= slack * bitRate;
}

AudioPlan planAudio(const Track& track, const MediaInfo& info, Preset preset) {
    const PresetRules rules = rulesOf(preset);
    AudioPlan plan;
    plan.track = track.index;
    plan.sampleRate = aacSampleRate(track.sampleRate);
    plan.channels = track.channels == 1 ? 1 : 2;
    plan.bitRate = plan.channels == 1 ? rules.monoBitRate : rules.stereoBitRate;
    // Elsewhere a sound track may start, pause and jump as it likes, which only new samples can follow.
    const bool hasSteadyClock = info.container.find("mp4") != std::string::npos;
    const bool isPassed =
        preset == Preset::Passthrough && isCopyable(track, info.container) && keepsWhole(track);
    if (isPassed || (hasSteadyClock && isCopiedByAnyPreset(track, plan.bitRate)))
        plan.treatment = Treatment::Copy;
    return plan;
}

double zeroOf(const MediaInfo& info, const ExportPlan& plan) {
    if (!info.hasClock)
        return 0;
    const auto startOf = [&info](int track) {
        return info.tracks[static_cast<std::size_t>(track)].startSeconds;
    };
    double zero = startOf(plan.video.track);
    for (const AudioPlan& sound : plan.sounds)
        zero = std::min(zero, startOf(sound.track));
    // These begin before zero where their clock goes round soon after the beginning. Elsewhere what lies
    // there is not to be heard or seen: a codec's run-in, frames that an edit list hides.
    const bool goesRound = info.container == "mpegts" || info.container == "mpeg";
    return goesRound ? zero : std::max(0.0, zero);
}

/// The same scene needs more bits for each pixel where the pixels are fewer.
double bitsPerPixel(Preset preset, double pixels) {
    constexpr double pixelsOfTheRule = 1280 * 720;
    constexpr double growth = 0.15;
    return rulesOf(preset).bitsPerPixel * std::pow(pixelsOfTheRule / pixels, growth);
}

} // namespace

Result<ExportPlan> planExport(const MediaInfo& info, Preset preset,
                              const std::vector<std::string>& languages) {
    const Result<const Track*> video = chooseVideo(info);
    if (!video)
        return tl::unexpected(video.error());
    ExportPlan plan;
    plan.preset = preset;
    plan.video = planVideo(**video, info, preset);
    for (const Track* sound : chosenSounds(info, preset, languages))
        plan.sounds.push_back(planAudio(*sound, info, preset));
    // What FLV has of the kind are its recorder's notes.
    const bool hasNotes = info.container.find("flv") != std::string::npos;
    for (const Track& track : info.tracks) {
        if (track.kind == TrackKind::Subtitle && !hasNotes && isText(track.codec) && track.hasDecoder &&
            !track.isEncrypted)
            plan.texts.push_back({track.index});
    }
    plan.zeroSeconds = zeroOf(info, plan);
    return plan;
}

std::int64_t estimateBytes(const MediaInfo& info, const ExportPlan& plan) {
    const double seconds = info.durationSeconds();
    if (seconds <= 0)
        return 0;
    const Track& video = info.tracks[static_cast<std::size_t>(plan.video.track)];
    double soundBits = 0;
    for (const AudioPlan& sound : plan.sounds) {
        const Track& track = info.tracks[static_cast<std::size_t>(sound.track)];
        soundBits += sound.treatment == Treatment::Copy && track.bitRate > 0
                         ? static_cast<double>(track.bitRate)
                         : sound.bitRate;
    }
    const double sourceBits = static_cast<double>(info.sizeBytes) * 8 / seconds;
    double videoBits =
        video.bitRate > 0 ? static_cast<double>(video.bitRate) : std::max(0.0, sourceBits - soundBits);
    if (plan.video.treatment == Treatment::Encode) {
        const double rate = std::min(plan.video.peakRate, video.frameRate > 0 ? video.frameRate : 30);
        const double pixels = static_cast<double>(plan.video.scaled.width) * plan.video.scaled.height;
        videoBits = std::min(videoBits, rate * pixels * bitsPerPixel(plan.preset, pixels));
    }
    return static_cast<std::int64_t>((videoBits + soundBits) * seconds / 8);
}

std::int64_t estimatePackets(const MediaInfo& info, const ExportPlan& plan) {
    // Sound comes in packets of 960 samples or more, all but always; texts at the pace of a reader.
    constexpr double leastSamples = 960;
    constexpr double textsPerSecond = 0.5;
    constexpr double slack = 1.05;
    const auto trackOf = [&info](int track) -> const Track& {
        return info.tracks[static_cast<std::size_t>(track)];
    };
    double perSecond = textsPerSecond * static_cast<double>(plan.texts.size());
    const double frameRate = trackOf(plan.video.track).frameRate;
    perSecond += frameRate > 0 ? frameRate : plan.video.peakRate;
    for (const AudioPlan& sound : plan.sounds)
        perSecond += std::max(trackOf(sound.track).sampleRate, sound.sampleRate) / leastSamples;
    // A file that claims to last for days has no more packets than it has room for.
    constexpr std::int64_t leastPacketBytes = 512;
    return std::min(static_cast<std::int64_t>(slack * perSecond * info.durationSeconds()),
                    info.sizeBytes / leastPacketBytes);
}

} // namespace reelsmith::media
