// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

extern "C" {
#include <libavutil/channel_layout.h>
}

namespace reelsmith::media {

/// How much of each channel of `from` goes into mono or stereo (`channels` 1 or 2), row by row as
/// swr_set_matrix() takes it. The loudness stays: the centre goes to both sides at -3 dB and surrounds to
/// their side at -3 dB (ITU-R BS.775), nothing is scaled down to prevent overflow, and the low-frequency
/// channel is left out. Channels whose place is unknown go to both sides alike.
std::vector<double> downmixMatrix(const AVChannelLayout& from, int channels);

} // namespace reelsmith::media
