// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/TrackChoice.h"

#include <algorithm>

extern "C" {
#include <libavcodec/codec_desc.h>
}

namespace reelsmith::media {

namespace {

/// A bare language and one with a region or script ("en", "en-us") mean the same choice.
bool isSameLanguage(const std::string& marked, const std::string& wanted) {
    return marked == wanted || marked.rfind(wanted + "-", 0) == 0;
}

const Track* chooseSound(const std::vector<const Track*>& candidates,
                         const std::vector<std::string>& languages) {
    const auto isMarked = [](const Track* track) { return !track->language.empty(); };
    if (std::count_if(candidates.begin(), candidates.end(), isMarked) > 1) {
        for (const std::string& language : languages) {
            for (const Track* track : candidates) {
                if (isSameLanguage(track->language, language))
                    return track;
            }
        }
    }
    const auto preferred = std::find_if(candidates.begin(), candidates.end(),
                                        [](const Track* track) { return track->isDefault; });
    return preferred == candidates.end() ? candidates.front() : *preferred;
}

/// Leaves those out where there are others.
template<typename Predicate>
void eraseUnlessAll(std::vector<const Track*>& candidates, Predicate isUnwanted) {
    if (!std::ranges::all_of(candidates, isUnwanted))
        std::erase_if(candidates, isUnwanted);
}

} // namespace

const Track* shownVideoTrack(const MediaInfo& info) {
    const auto found = std::find_if(info.tracks.begin(), info.tracks.end(), [](const Track& track) {
        return track.kind == TrackKind::Video && !track.isCoverArt && track.hasDecoder && track.hasSamples &&
               track.width > 0 && track.height > 0;
    });
    return found == info.tracks.end() ? nullptr : &*found;
}

bool isCopyable(const Track& track, const std::string& container) {
    const auto comesFrom = [&container](const char* name) {
        return container.find(name) != std::string::npos;
    };
    switch (track.codec) {
    case AV_CODEC_ID_H264:
    case AV_CODEC_ID_HEVC:
    case AV_CODEC_ID_AAC:
    case AV_CODEC_ID_AC3:
    case AV_CODEC_ID_EAC3:
        return comesFrom("mp4") || comesFrom("matroska") || comesFrom("flv") || comesFrom("mpegts");
    case AV_CODEC_ID_MP3:
        return comesFrom("mp4") || comesFrom("matroska") || comesFrom("flv");
    case AV_CODEC_ID_AV1:
    case AV_CODEC_ID_VP9:
    case AV_CODEC_ID_MPEG4:
    case AV_CODEC_ID_MPEG2VIDEO:
    case AV_CODEC_ID_ALAC:
    case AV_CODEC_ID_FLAC:
    case AV_CODEC_ID_OPUS:
        return comesFrom("mp4") || comesFrom("matroska");
    default:
        return false;
    }
}

bool isText(AVCodecID codec) {
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(codec);
    return descriptor && (descriptor->props & AV_CODEC_PROP_TEXT_SUB);
}

std::vector<const Track*> chosenSounds(const MediaInfo& info, Preset preset,
                                       const std::vector<std::string>& languages) {
    std::vector<const Track*> candidates;
    for (const Track& track : info.tracks) {
        const bool isKnown = track.hasDecoder && track.channels > 0 && track.sampleRate > 0;
        if (track.kind == TrackKind::Audio && track.hasSamples && isKnown && !track.isEncrypted)
            candidates.push_back(&track);
    }
    const Track* video = shownVideoTrack(info);
    const auto isOfOther = [video](const Track* track) {
        return video && video->programs != 0 && (track->programs & video->programs) == 0;
    };
    eraseUnlessAll(candidates, isOfOther);
    if (preset == Preset::Passthrough || candidates.empty())
        return candidates;
    const auto isForSome = [](const Track* track) { return track->isForSome; };
    eraseUnlessAll(candidates, isForSome);
    return {chooseSound(candidates, languages)};
}

} // namespace reelsmith::media
