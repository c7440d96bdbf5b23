// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/MediaInfo.h"
#include "media/Preset.h"

#include <string>
#include <vector>

namespace reelsmith::media {

/// The track shown, whatever the preset: the first that can be decoded, has samples and is no cover art. Null
/// where there is none.
const Track* shownVideoTrack(const MediaInfo& info);

/// Whether an MP4 file may carry the track's packets as they come out of `container` (FFmpeg's name of it),
/// so that ordinary players find their way: the codec has its place in MP4, each packet is one whole frame
/// and has its time.
bool isCopyable(const Track& track, const std::string& container);

/// Subtitles made of text, not of pictures.
bool isText(AVCodecID codec);

/// The sound tracks that go into the result, in the source's order: of the picture's own program, where it
/// has any. Passthrough: every one that can be copied or decoded. Else one that is for all, where there is
/// any: the user's language where several are marked, else the one marked as default, else the first.
std::vector<const Track*> chosenSounds(const MediaInfo& info, Preset preset,
                                       const std::vector<std::string>& languages);

} // namespace reelsmith::media
