// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/Handles.h"

#include <cstdint>
#include <functional>

namespace reelsmith::media {

/// Makes one unbroken run of samples, beginning at zero, of decoded pieces of sound that know their times:
/// silence where there is none, nothing twice. One thread.
class SoundPlacer {
public:
    using Take = std::function<Result<void>(const AVFrame&)>;

    SoundPlacer(AVRational timeBase, double zeroSeconds) : m_timeBase(timeBase), m_zeroSeconds(zeroSeconds) {}

    /// Hands on the frame, or what of it is due, after silence where some is missing.
    Result<void> place(FrameHandle frame, const Take& take);

private:
    Result<void> fillSilence(const AVFrame& like, std::int64_t samples, const Take& take);

    AVRational m_timeBase;
    double m_zeroSeconds;
    double m_position = 0; ///< seconds handed on
    bool m_hasBegun = false;
};

} // namespace reelsmith::media
