// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/BoxWalk.h"
#include "media/DescriptorIo.h"
#include "media/Error.h"
#include "media/Handles.h"
#include "media/IndexRoom.h"
#include "media/RangeMover.h"

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace reelsmith::media {

/// Writes an MP4 file whose index stands in front.
///
/// Tracks are reserved before anything is written, and described as soon as their coding is known, from any
/// thread; packets that come before every track is described wait here.
class Mp4Writer {
public:
    struct TrackDescription {
        CodecParametersHandle codec;
        AVRational timeBase{1, 90'000};
        std::string language; ///< ISO 639-2, or empty
        int disposition = 0;  ///< AV_DISPOSITION_…
        std::array<std::int32_t, 9> displayMatrix{};
        bool isTurned = false; ///< whether displayMatrix counts
    };

    struct Chapter {
        double startSeconds = 0;
        double endSeconds = 0;
        std::string title;
    };

    /// What stands beside the tracks.
    struct Annotations {
        std::string creationTime; ///< ISO 8601, or empty
        std::vector<Chapter> chapters;
    };

    /// The descriptor, readable and writable and empty, must outlive the writer.
    explicit Mp4Writer(int descriptor);
    ~Mp4Writer();

    void annotate(const Annotations& annotations);

    /// All packets are copied from where they stand in this file (AVPacket::pos) by finish(); of their own
    /// bytes only the number counts. They are written in the order in which they come. Before sealTracks().
    void takePacketsFrom(int source);

    /// Leaves room in front for an index of so many packets, which saves moving the media data in the end.
    /// Where more come they are moved nevertheless. Before sealTracks().
    void leaveRoomFor(std::int64_t packetCount);

    /// Its number, in the order in which tracks will stand in the file. Before any thread writes.
    int reserveTrack();

    /// No further track will be reserved.
    Result<void> sealTracks();

    /// Gives a reserved track its coding. The last one writes the file's header. Any thread.
    Result<void> describeTrack(int track, TrackDescription description);

    /// Writes a packet whose times count in the track's described time base. Any thread.
    Result<void> write(int track, PacketHandle packet);

    /// Writes the index and what is still to be copied; after it the file is whole. All threads must have
    /// ended. `progress` gets the fraction of what was to be copied.
    Result<void> finish(const std::function<void(double)>& progress);

    /// Packets written of a track.
    std::int64_t packetCount(int track) const {
        return m_tracks[static_cast<std::size_t>(track)].packetCount;
    }

private:
    struct Track {
        TrackDescription description;
        bool isDescribed = false;
        std::int64_t lastDts = INT64_MIN;
        std::int64_t packetCount = 0;
    };

    static int openAgain(AVFormatContext* context, AVIOContext** made, const char*, int, AVDictionary**);
    static int closeAgain(AVFormatContext* context, AVIOContext* io);

    Result<void> beginOnceDescribed();
    Result<void> begin();
    Result<void> addStreams();
    Result<void> writeNow(int track, PacketHandle packet);
    int writeWithGap(AVPacket* packet);
    Result<void> writeIndex();
    std::int64_t indexedCount() const;
    Box box(const char* type) const;

    std::mutex m_mutex;
    DescriptorIo m_io;
    DescriptorIo m_rereading; ///< for moving the media data when the index goes in front
    AVFormatContext* m_context = nullptr;
    std::optional<RangeMover> m_mover;
    std::optional<IndexRoom> m_indexRoom;
    std::vector<Track> m_tracks;
    std::deque<std::pair<int, PacketHandle>> m_waiting; ///< for the last track's description
    std::int64_t m_waitingBytes = 0;
    bool m_isSealed = false;
    bool m_hasBegun = false;
};

} // namespace reelsmith::media
