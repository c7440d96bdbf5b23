// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/Colour.h"
#include "media/Error.h"
#include "media/Handles.h"

#include <functional>
#include <memory>

namespace reelsmith::media {

/// Turns a track's packets into frames. Damage is passed over and counted, not fatal. One thread at a time.
class Decoder {
public:
    /// Leaving out the loop filter saves a tenth or more of the work. Unreferenced pictures without it look a
    /// little blocky, unseen once they shrink; all pictures without it drift: good for a single one.
    enum class LoopFilter { Whole, ReferencedOnly, None };

    struct Options {
        int threads = 1;
        LoopFilter loopFilter = LoopFilter::Whole;
        /// Halves the picture's sides so many times while decoding, where the codec can.
        int halvings = 0;
    };

    /// The stream must outlive the decoder. Fails with Unsupported without a decoder, InvalidSource when it
    /// refuses.
    static Result<std::unique_ptr<Decoder>> open(const AVStream* stream, const Options& options);

    /// Hands each frame that comes of `packet` (null: of what is still inside) to `take`. A false from `take`
    /// stops. Fails only for want of memory.
    Result<void> decode(const AVPacket* packet, const std::function<bool(FrameHandle)>& take);

    /// Forgets what is inside, to go on elsewhere in the track.
    void reset() { avcodec_flush_buffers(m_context.get()); }

    /// Packets that could not be decoded.
    long damagedCount() const { return m_damagedCount; }

private:
    Decoder(CodecHandle context, const AVStream* stream)
        : m_context(std::move(context)), m_toldColours(coloursOf(*stream->codecpar)) {}
    Result<bool> drain(const std::function<bool(FrameHandle)>& take);

    CodecHandle m_context;
    ColourTags m_toldColours; ///< by the container
    long m_damagedCount = 0;
};

} // namespace reelsmith::media
