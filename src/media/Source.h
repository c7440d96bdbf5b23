// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/DescriptorIo.h"
#include "media/Error.h"
#include "media/Handles.h"
#include "media/MissingTimes.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>

namespace reelsmith::media {

/// Whether the file is of the kind that FFmpeg knows by this name, perhaps among others.
bool isNamed(const AVFormatContext* context, const char* name);

/// An opened video file: its container and tracks, ready to be read packet by packet.
///
/// Reads the descriptor and nothing else: a playlist or a reference that names another file is refused, and
/// only containers of real video files are recognised. One thread at a time.
class Source {
public:
    /// How much to find out on opening. Headers: only what the container says, where that suffices for
    /// duration, size and codec (else the same as Decoded). Decoded: the first packets are decoded too, for
    /// pixel format, colour, field order and profile. Passed: no more than it takes to bring packets into an
    /// MP4 file; of tracks that canPassOn().
    enum class Detail { Headers, Decoded, Passed };

    /// Fails with InvalidSource for what is no video file, with Unsupported where packets cannot be passed on
    /// without a closer look. The descriptor must outlive the source.
    static Result<std::unique_ptr<Source>> open(int descriptor, Detail detail);

    ~Source();
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    AVFormatContext* context() const { return m_context; }
    AVStream* track(int index) const { return m_context->streams[index]; }

    /// The next packet of any track; nothing at the end. Damage inside the file is passed over where the
    /// container allows it.
    PacketHandle readPacket();

    /// Reads on, if need be, until a packet of the track is there; null where there is none soon. The packets
    /// read are not lost: readPacket() yields them first, until when this one stays valid.
    const AVPacket* firstPacket(int track);

    /// Whether packets come without their bytes (zeros and rubbish of the right size) but say where they are
    /// (AVPacket::pos). Only of what was opened to be passed on.
    bool tellsPositionsOnly() const { return m_tellsPositionsOnly; }

    /// Whether the track's packets can go into an MP4 file as they come. Of what was opened to be passed on.
    bool canPassOn(int track) const { return m_passedTracks.count(track) > 0; }

    /// How much of the file has been read, 0…1.
    double fractionRead() const;

    std::int64_t sizeBytes() const { return m_sizeBytes; }
    int descriptor() const { return m_io.descriptor(); }

private:
    enum class Look { Usual, Long };

    explicit Source(int descriptor);
    static Result<std::unique_ptr<Source>> open(int descriptor, Detail detail, Look look);
    Result<void> openContainer();
    Result<void> findTracks(Detail detail);
    Result<void> preparePassing();
    void preparePassing(int track);
    PacketHandle readNext();

    DescriptorIo m_io;
    AVFormatContext* m_context = nullptr;
    std::deque<PacketHandle> m_ahead; ///< read, but not yet handed out
    std::int64_t m_sizeBytes = 0;
    bool m_tellsPositionsOnly = false;
    std::map<int, MissingTimes> m_passedTracks;
};

} // namespace reelsmith::media
