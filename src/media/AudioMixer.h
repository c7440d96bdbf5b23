// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Error.h"
#include "media/Handles.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace reelsmith::media {

/// Turns decoded sound of any sample format, rate and number of channels, which may change on the way, into
/// planar float samples, mono or stereo, at one rate. More channels are folded at the same loudness; a
/// limiter then keeps what adds up too high from clipping. Knows no times: as many samples come out as went
/// in, rate apart. One thread at a time.
class AudioMixer {
public:
    static constexpr int maximumSampleRate = 768000;

    /// `channels`: 1 or 2.
    AudioMixer(int sampleRate, int channels);
    ~AudioMixer();

    /// The sound ready after taking `sound` in; null while all of it is still held back (some milliseconds).
    /// Fails on a frame that is no sound of 1…64 channels and up to maximumSampleRate; the next may still be
    /// good.
    Result<FrameHandle> mix(const AVFrame& sound);

    /// What was held back; null when nothing was. Sound may follow and is then joined to it.
    Result<FrameHandle> flush();

private:
    struct Conversion;

    Result<void> open(const AVFrame& sound);
    Result<void> drain();
    Result<void> convert(const std::uint8_t** samples, int count);
    void limit(std::size_t start);
    Result<FrameHandle> takeReady();

    int m_sampleRate;
    std::vector<std::vector<float>> m_ready; ///< samples that have come out, by channel
    std::unique_ptr<Conversion> m_conversion;
};

} // namespace reelsmith::media
